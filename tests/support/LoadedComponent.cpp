#include "tests/support/LoadedComponent.h"

#include "adapters/classserver/server/ServerObject.h"
#include "kvex/ClassServer.h"

#include <gtest/gtest.h>

namespace kvex::test {

LoadedComponent::LoadedComponent() {
    const auto factory = makeComObject<ClassFactory>(
        []() -> ComPointer<IUnknown> { return makeComObject<UselessUtility>(); });
    EXPECT_EQ(CoRegisterClassObject(CLSID_Utility, factory.get(), &registration_), S_OK);
    EXPECT_EQ(CoLoadServer(KVEX_COMPONENT, CLSID_RuleUI), S_OK) << CoLoadErrorText();
    EXPECT_EQ(createInstance(CLSID_RuleUI, object_), S_OK);
}

LoadedComponent::~LoadedComponent() {
    object_.reset();
    CoRevokeClassObject(registration_);
}

} // namespace kvex::test

// The component as a host loads it from its file, for calls that need no session.
#pragma once

#include "adapters/classserver/server/ServerObject.h"
#include "kvex/ClassServer.h"
#include "kvex/HostSuite.h"
#include "kvex/RuleStrings.h"
#include "kvex/RuleUI.h"

#include <gtest/gtest.h>

namespace kvex::test {

/// Every call fails: the component must need none.
class UselessUtility final : public ComObject<IUtility> {
public:
    HRESULT GetConnectionString(BSTR *) noexcept override { return E_FAIL; }
    HRESULT GetSecondText(BSTR *) noexcept override { return E_FAIL; }
    HRESULT WriteErrorLog(BSTR *, ErrorRecord *, BSTR, LONG, VARIANT_BOOL *,
                          LONG *) noexcept override {
        return E_FAIL;
    }
    HRESULT ReportMessage(BSTR *, BSTR, VARIANT_BOOL, VARIANT_BOOL) noexcept override {
        return E_FAIL;
    }
    HRESULT ShowMessageBox(BSTR, LONG, LONG *) noexcept override { return E_FAIL; }

private:
    ~UselessUtility() override = default;
};

/// An object of the class RuleUI from the file KVEX_COMPONENT, which the test program defines.
class LoadedComponent {
public:
    LoadedComponent() {
        const auto factory = makeComObject<ClassFactory>(
            []() -> ComPointer<IUnknown> { return makeComObject<UselessUtility>(); });
        EXPECT_EQ(CoRegisterClassObject(CLSID_Utility, factory.get(), &registration_), S_OK);
        EXPECT_EQ(CoLoadServer(KVEX_COMPONENT, CLSID_RuleUI), S_OK) << CoLoadErrorText();
        EXPECT_EQ(createInstance(CLSID_RuleUI, object_), S_OK);
    }
    ~LoadedComponent() {
        object_.reset();
        CoRevokeClassObject(registration_);
    }
    LoadedComponent(const LoadedComponent &) = delete;
    LoadedComponent &operator=(const LoadedComponent &) = delete;

    [[nodiscard]] IRuleUI &object() const { return *object_; }
    [[nodiscard]] ComPointer<IRuleStrings> strings() const { return object_.as<IRuleStrings>(); }

private:
    std::uint32_t registration_ = 0;
    ComPointer<IRuleUI> object_;
};

} // namespace kvex::test

#include "adapters/classserver/server/Guard.h"
#include "adapters/classserver/server/ServerObject.h"
#include "platform/Error.h"
#include "tests/classserver/TestServer.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <system_error>

namespace {

using kvex::ClassFactory;
using kvex::ComPointer;
using kvex::module_count::isInUse;

class Both final : public kvex::ServerObject<ICounter, INamed> {
public:
    explicit Both(bool fails = false) {
        if (fails) {
            throw kvex::Error(kvex::error_number::cannotCreateObject);
        }
    }
    HRESULT Next(LONG *number) noexcept final {
        *number = 7;
        return S_OK;
    }
    HRESULT GetName(BSTR *name) noexcept final {
        *name = nullptr;
        return S_OK;
    }

private:
    ~Both() final = default;
};

ComPointer<IUnknown> createBoth() {
    return kvex::makeComObject<Both>().as<IUnknown>();
}
ComPointer<IUnknown> createNothing() {
    return kvex::makeComObject<Both>(true).as<IUnknown>();
}

/// The result of an exception that leaves a component's function.
template <class Raised> HRESULT resultOf(const Raised &raised) {
    return kvex::guarded([&]() -> HRESULT { throw raised; });
}

TEST(ComObject, HasOneIdentityWhateverInterfaceIsAsked) {
    const ComPointer<Both> object = kvex::makeComObject<Both>();
    const auto counter = object.as<ICounter>();
    const auto named = object.as<INamed>();
    ASSERT_TRUE(counter);
    ASSERT_TRUE(named);
    EXPECT_EQ(counter.as<IUnknown>().get(), named.as<IUnknown>().get());
    EXPECT_EQ(named.as<ICounter>().get(), counter.get());
    LONG number = 0;
    EXPECT_EQ(counter->Next(&number), S_OK);
    EXPECT_EQ(number, 7);
}

TEST(ComObject, AnUnknownInterfaceLeavesTheResultNull) {
    const ComPointer<Both> object = kvex::makeComObject<Both>();
    void *result = object.get();
    EXPECT_EQ(object->QueryInterface(IClassFactory::iid, &result), E_NOINTERFACE);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(object->QueryInterface(ICounter::iid, nullptr), E_POINTER);
}

TEST(ComObject, KeepsItsModuleInUseWhileItIsAlive) {
    ASSERT_FALSE(isInUse());
    auto object = kvex::makeComObject<Both>();
    EXPECT_TRUE(isInUse());
    object.reset();
    EXPECT_FALSE(isInUse());
    EXPECT_EQ(kvex::test::errorNumber([&] { object = kvex::makeComObject<Both>(true); }),
              kvex::error_number::cannotCreateObject);
    EXPECT_FALSE(isInUse());
}

TEST(ClassFactory, CreatesAnObjectThatTheCallerOwns) {
    const auto factory = kvex::makeComObject<ClassFactory>(createBoth);
    ComPointer<ICounter> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, ICounter::iid, object.putVoid()), S_OK);
    EXPECT_EQ(object.detach()->Release(), 0U);
}

TEST(ClassFactory, RefusesAggregation) {
    const auto factory = kvex::makeComObject<ClassFactory>(createBoth);
    void *object = factory.get();
    EXPECT_EQ(factory->CreateInstance(factory.get(), IUnknown::iid, &object),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
}

TEST(ClassFactory, NeedsSomewhereToPutTheObject) {
    const auto factory = kvex::makeComObject<ClassFactory>(createBoth);
    EXPECT_EQ(factory->CreateInstance(nullptr, IUnknown::iid, nullptr), E_POINTER);
}

TEST(ClassFactory, AnObjectWithoutTheInterfaceIsReleased) {
    {
        const auto factory = kvex::makeComObject<ClassFactory>(createBoth);
        void *object = factory.get();
        EXPECT_EQ(factory->CreateInstance(nullptr, IClassFactory::iid, &object), E_NOINTERFACE);
        EXPECT_EQ(object, nullptr);
    }
    EXPECT_FALSE(isInUse());
}

TEST(ClassFactory, AFailingConstructorIsAResult) {
    const auto factory = kvex::makeComObject<ClassFactory>(createNothing);
    void *object = factory.get();
    EXPECT_EQ(factory->CreateInstance(nullptr, IUnknown::iid, &object), hresultOf(0x800A01AD));
    EXPECT_EQ(object, nullptr);
}

TEST(ClassFactory, LocksCountAndKeepTheModuleInUse) {
    {
        const auto factory = kvex::makeComObject<ClassFactory>(createBoth);
        EXPECT_EQ(factory->LockServer(true), S_OK);
        EXPECT_EQ(factory->LockServer(true), S_OK);
        EXPECT_EQ(factory->LockServer(false), S_OK);
    }
    EXPECT_TRUE(isInUse());
    const auto factory = kvex::makeComObject<ClassFactory>(createBoth);
    EXPECT_EQ(factory->LockServer(false), S_OK);
    EXPECT_EQ(factory->LockServer(false), E_UNEXPECTED);
    EXPECT_TRUE(isInUse());
}

TEST(Guard, GivesWhatTheBodyReturns) {
    EXPECT_EQ(kvex::guarded([] { return S_FALSE; }), S_FALSE);
}

TEST(Guard, AnErrorBecomesItsNumber) {
    EXPECT_EQ(resultOf(kvex::Error(5)), hresultOf(0x800A0005));
    EXPECT_EQ(resultOf(kvex::Error(35600)), hresultOf(0x800A8B10));
    EXPECT_EQ(resultOf(kvex::Error(-2147217873)), -2147217873);
    EXPECT_EQ(resultOf(kvex::Error(kvex::error_number::outOfMemory)), E_OUTOFMEMORY);
    EXPECT_EQ(resultOf(kvex::Error(0)), E_FAIL);
    EXPECT_EQ(resultOf(kvex::Error(0x10000)), E_FAIL);
}

TEST(Guard, AnyOtherExceptionBecomesAFailedResult) {
    EXPECT_EQ(resultOf(std::bad_alloc()), E_OUTOFMEMORY);
    EXPECT_EQ(resultOf(std::system_error(std::make_error_code(std::errc::permission_denied))),
              E_ACCESSDENIED);
    EXPECT_EQ(resultOf(std::system_error(std::make_error_code(std::errc::no_space_on_device))),
              E_FAIL);
    EXPECT_EQ(resultOf(std::logic_error("?")), E_UNEXPECTED);
    EXPECT_EQ(resultOf(1), E_UNEXPECTED);
}

} // namespace

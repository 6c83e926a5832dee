#include "adapters/classserver/server/ServerObject.h"
#include "kvex/ServedObject.h"
#include "tests/classserver/TestServer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using kvex::ClassFactory;
using kvex::ComPointer;

constexpr CLSID ownClass{
    0x5A0C1F10, 0x7E21, 0x4C35, {0x90, 0x11, 0x3B, 0x44, 0x52, 0x0A, 0x6E, 0x20}};

template <LONG Start> class StartingAt final : public kvex::ServerObject<ICounter> {
public:
    HRESULT Next(LONG *number) noexcept final {
        *number = Start;
        return S_OK;
    }

private:
    ~StartingAt() final = default;
};

template <LONG Start> ComPointer<IUnknown> create() {
    return kvex::makeComObject<StartingAt<Start>>();
}

template <LONG Start> std::uint32_t registerClass(const CLSID &classId = ownClass) {
    std::uint32_t registration = 0;
    const auto factory = kvex::makeComObject<ClassFactory>(create<Start>);
    EXPECT_EQ(CoRegisterClassObject(classId, factory.get(), &registration), S_OK);
    EXPECT_NE(registration, 0U);
    return registration;
}

LONG nextOfNewObject() {
    ComPointer<ICounter> object;
    EXPECT_EQ(kvex::createInstance(ownClass, object), S_OK);
    LONG number = -1;
    if (object) {
        object->Next(&number);
    }
    return number;
}

TEST(ClassObjects, ARegisteredClassObjectMakesObjectsUntilItIsRevoked) {
    const std::uint32_t registration = registerClass<1>();
    EXPECT_EQ(nextOfNewObject(), 1);
    EXPECT_EQ(CoRevokeClassObject(registration), S_OK);
    ComPointer<ICounter> object;
    EXPECT_EQ(kvex::createInstance(ownClass, object), REGDB_E_CLASSNOTREG);
    EXPECT_FALSE(object);
    EXPECT_EQ(CoRevokeClassObject(registration), CO_E_OBJNOTREG);
}

TEST(ClassObjects, RevokingReleasesTheClassObject) {
    const std::uint32_t registration = registerClass<1>();
    EXPECT_TRUE(kvex::module_count::isInUse());
    EXPECT_EQ(CoRevokeClassObject(registration), S_OK);
    EXPECT_FALSE(kvex::module_count::isInUse());
}

TEST(ClassObjects, TheOneRegisteredLastIsUsed) {
    const std::uint32_t first = registerClass<1>();
    const std::uint32_t second = registerClass<2>();
    EXPECT_NE(first, second);
    EXPECT_EQ(nextOfNewObject(), 2);
    EXPECT_EQ(CoRevokeClassObject(second), S_OK);
    EXPECT_EQ(nextOfNewObject(), 1);
    EXPECT_EQ(CoRevokeClassObject(first), S_OK);
}

TEST(ClassObjects, WrongArgumentsAreRefused) {
    std::uint32_t registration = 1;
    EXPECT_EQ(CoRegisterClassObject(ownClass, nullptr, &registration), E_INVALIDARG);
    EXPECT_EQ(registration, 0U);
    const auto factory = kvex::makeComObject<ClassFactory>(create<1>);
    EXPECT_EQ(CoRegisterClassObject(ownClass, factory.get(), nullptr), E_POINTER);
    EXPECT_EQ(CoRevokeClassObject(0), CO_E_OBJNOTREG);
    EXPECT_EQ(CoGetClassObject(ownClass, IUnknown::iid, nullptr), E_POINTER);
    EXPECT_EQ(CoCreateInstance(ownClass, nullptr, IUnknown::iid, nullptr), E_POINTER);
}

TEST(ClassObjects, AggregationAndUnknownInterfacesAreRefused) {
    const std::uint32_t registration = registerClass<1>();
    const auto outer = create<1>();
    void *object = outer.get();
    EXPECT_EQ(CoCreateInstance(ownClass, outer.get(), IUnknown::iid, &object),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    object = outer.get();
    EXPECT_EQ(CoCreateInstance(ownClass, nullptr, INamed::iid, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    object = outer.get();
    EXPECT_EQ(CoGetClassObject(ownClass, ICounter::iid, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(CoRevokeClassObject(registration), S_OK);
}

TEST(ClassObjects, ThreadsRegisterCreateAndRevokeSideBySide) {
    constexpr int rounds = 200;
    std::atomic<int> created = 0;
    std::vector<std::thread> threads;
    for (const std::uint8_t last : std::initializer_list<std::uint8_t>{0x31, 0x32, 0x33}) {
        threads.emplace_back([&created, last] {
            CLSID classId = ownClass;
            classId.Data4[7] = last;
            for (int round = 0; round < rounds; ++round) {
                const std::uint32_t registration = registerClass<5>(classId);
                ComPointer<ICounter> object;
                if (kvex::createInstance(classId, object) == S_OK) {
                    ++created;
                }
                EXPECT_EQ(CoRevokeClassObject(registration), S_OK);
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(created, 3 * rounds);
    EXPECT_FALSE(kvex::module_count::isInUse());
}

TEST(ServedObject, EveryCreationGivesTheOneObjectWhileItIsServed) {
    ComPointer<ICounter> first;
    ComPointer<ICounter> second;
    {
        const auto object = kvex::makeComObject<StartingAt<3>>();
        const kvex::ServedObject served(ownClass, *object);
        ASSERT_EQ(kvex::createInstance(ownClass, first), S_OK);
        ASSERT_EQ(kvex::createInstance(ownClass, second), S_OK);
        EXPECT_EQ(first.get(), object.get());
        EXPECT_EQ(second.get(), object.get());
        void *none = &none;
        EXPECT_EQ(CoCreateInstance(ownClass, object.get(), ICounter::iid, &none),
                  CLASS_E_NOAGGREGATION);
        EXPECT_EQ(none, nullptr);
        EXPECT_EQ(CoCreateInstance(ownClass, nullptr, INamed::iid, &none), E_NOINTERFACE);
    }
    EXPECT_EQ(kvex::createInstance(ownClass, second), REGDB_E_CLASSNOTREG);
    LONG number = 0;
    EXPECT_EQ(first->Next(&number), S_OK);
    EXPECT_EQ(number, 3);
    first.reset();
    EXPECT_FALSE(kvex::module_count::isInUse());
}

TEST(ServedObject, TheLastOneCounts) {
    const auto one = kvex::makeComObject<StartingAt<1>>();
    const auto two = kvex::makeComObject<StartingAt<2>>();
    const kvex::ServedObject first(ownClass, *one);
    {
        const kvex::ServedObject second(ownClass, *two);
        EXPECT_EQ(nextOfNewObject(), 2);
    }
    EXPECT_EQ(nextOfNewObject(), 1);
}

} // namespace

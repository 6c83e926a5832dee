#include "adapters/classserver/ClassRegistration.h"
#include "adapters/classserver/server/ServerObject.h"
#include "kvex/ClassServer.h"
#include "tests/classserver/DataDirectories.h"
#include "tests/classserver/LoadedFile.h"
#include "tests/classserver/TestServer.h"

namespace {

using kvex::ComPointer;

class RegisteredServer : public DataDirectories {};

HRESULT create() {
    ComPointer<ICounter> object;
    return kvex::createInstance(CLSID_RegisteredCounter, object);
}

TEST_F(RegisteredServer, IsFoundByNameLoadedAndForgottenAgain) {
    CLSID classId{};
    ASSERT_EQ(CLSIDFromProgID(CounterProgramId, &classId), CO_E_CLASSSTRING);
    ASSERT_EQ(create(), REGDB_E_CLASSNOTREG);

    ASSERT_EQ(CoRegisterServer(TEST_SERVER), S_OK);
    ASSERT_EQ(CLSIDFromProgID(u"kvextest.counter", &classId), S_OK);
    EXPECT_EQ(classId, CLSID_RegisteredCounter);
    const auto registration = kvex::findClassRegistration(classId);
    ASSERT_TRUE(registration);
    EXPECT_EQ(registration->server, std::filesystem::path(TEST_SERVER));
    EXPECT_EQ(registration->programId, CounterProgramId);
    EXPECT_EQ(registration->description, u"Counts");

    CoFreeUnusedLibraries();
    EXPECT_FALSE(isLoaded(TEST_SERVER));
    EXPECT_EQ(create(), S_OK);
    EXPECT_TRUE(isLoaded(TEST_SERVER));

    ASSERT_EQ(CoUnregisterServer(TEST_SERVER), S_OK);
    EXPECT_EQ(CLSIDFromProgID(CounterProgramId, &classId), CO_E_CLASSSTRING);
    EXPECT_EQ(create(), REGDB_E_CLASSNOTREG);
    CoFreeUnusedLibraries();
    EXPECT_FALSE(isLoaded(TEST_SERVER));
}

TEST_F(RegisteredServer, RegistersAndUnregistersTwiceWithoutHarm) {
    EXPECT_EQ(CoUnregisterServer(TEST_SERVER), S_OK);
    EXPECT_EQ(CoRegisterServer(TEST_SERVER), S_OK);
    EXPECT_EQ(CoRegisterServer(TEST_SERVER), S_OK);
    EXPECT_EQ(create(), S_OK);
    EXPECT_EQ(CoUnregisterServer(TEST_SERVER), S_OK);
    EXPECT_EQ(CoUnregisterServer(TEST_SERVER), S_OK);
    EXPECT_EQ(create(), REGDB_E_CLASSNOTREG);
}

TEST_F(RegisteredServer, ThatCannotWriteItsRegistrationSaysSo) {
    put(root() / "user", "a file where the directory should be");
    EXPECT_EQ(CoRegisterServer(TEST_SERVER), SELFREG_E_CLASS);
}

TEST_F(RegisteredServer, AClassObjectOfTheProcessGoesBeforeIt) {
    ASSERT_EQ(CoRegisterServer(TEST_SERVER), S_OK);
    const auto nothing = kvex::makeComObject<kvex::ClassFactory>(
        []() -> ComPointer<IUnknown> { throw std::bad_alloc(); });
    std::uint32_t registration = 0;
    ASSERT_EQ(CoRegisterClassObject(CLSID_RegisteredCounter, nothing.get(), &registration), S_OK);
    EXPECT_EQ(create(), E_OUTOFMEMORY);
    EXPECT_EQ(CoRevokeClassObject(registration), S_OK);
    EXPECT_EQ(create(), S_OK);
}

TEST_F(RegisteredServer, WhoseFileIsMissingOrNoServerGivesNoObject) {
    kvex::writeClassRegistration({CLSID_RegisteredCounter, root() / "missing.so", u"", u""});
    EXPECT_EQ(create(), CO_E_DLLNOTFOUND);
    kvex::writeClassRegistration({CLSID_RegisteredCounter, TEST_NO_SERVER, u"", u""});
    EXPECT_EQ(create(), CO_E_ERRORINDLL);
    kvex::writeClassRegistration({CLSID_Unknown, TEST_SERVER, u"", u""});
    void *object = this;
    EXPECT_EQ(CoGetClassObject(CLSID_Unknown, IClassFactory::iid, &object),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
}

TEST_F(RegisteredServer, WithAMalformedFileIsNotRegistered) {
    put(userClasses() / "{5A0C1F10-7E21-4C35-9011-3B44520A6E14}.class", "Server\n");
    EXPECT_EQ(create(), REGDB_E_CLASSNOTREG);
}

TEST_F(RegisteredServer, LookingUpANameNeedsTheNameAndAPlaceForTheId) {
    CLSID classId = CLSID_Counter;
    EXPECT_EQ(CLSIDFromProgID(nullptr, &classId), E_INVALIDARG);
    EXPECT_EQ(classId, CLSID{});
    EXPECT_EQ(CLSIDFromProgID(CounterProgramId, nullptr), E_POINTER);
    ASSERT_EQ(CoRegisterServer(TEST_SERVER), S_OK);
    EXPECT_EQ(CLSIDFromProgID(u"", &classId), CO_E_CLASSSTRING);
}

} // namespace

#include "kvex/ClassServer.h"
#include "kvex/ComPointer.h"
#include "tests/classserver/DataDirectories.h"
#include "tests/classserver/LoadedFile.h"
#include "tests/classserver/TestServer.h"

#include <atomic>
#include <thread>
#include <vector>

namespace {

using kvex::ComPointer;

class Loading : public DataDirectories {
protected:
    Loading() {
        CoFreeUnusedLibraries();
        EXPECT_FALSE(isLoaded(TEST_SERVER));
    }
};

/// The result of creating an object of the class.
HRESULT create(const CLSID &classId) {
    ComPointer<IUnknown> object;
    const HRESULT result = kvex::createInstance(classId, object);
    EXPECT_EQ(result == S_OK, static_cast<bool>(object));
    return result;
}

TEST_F(Loading, AServerNamedByItsFileGivesItsClass) {
    ASSERT_EQ(CoLoadServer(TEST_SERVER, CLSID_Counter), S_OK);
    ComPointer<ICounter> counter;
    ASSERT_EQ(kvex::createInstance(CLSID_Counter, counter), S_OK);
    LONG number = 0;
    EXPECT_EQ(counter->Next(&number), S_OK);
    EXPECT_EQ(counter->Next(&number), S_OK);
    EXPECT_EQ(number, 2);
    kvex::Bstr name;
    ASSERT_TRUE(counter.as<INamed>());
    EXPECT_EQ(counter.as<INamed>()->GetName(name.put()), S_OK);
    EXPECT_EQ(name.view(), u"counter");
}

TEST_F(Loading, AServerIsUnloadedOnlyWhenNothingOfItIsAlive) {
    ASSERT_EQ(CoLoadServer(TEST_SERVER, CLSID_Counter), S_OK);
    ComPointer<ICounter> counter;
    ASSERT_EQ(kvex::createInstance(CLSID_Counter, counter), S_OK);
    CoFreeUnusedLibraries();
    ASSERT_TRUE(isLoaded(TEST_SERVER));
    LONG number = 0;
    EXPECT_EQ(counter->Next(&number), S_OK);
    counter.reset();
    EXPECT_TRUE(isLoaded(TEST_SERVER));
    CoFreeUnusedLibraries();
    EXPECT_FALSE(isLoaded(TEST_SERVER));
}

TEST_F(Loading, AnUnloadedServerIsLoadedAgainWhenItsClassIsNeeded) {
    ASSERT_EQ(CoLoadServer(TEST_SERVER, CLSID_Counter), S_OK);
    CoFreeUnusedLibraries();
    ASSERT_FALSE(isLoaded(TEST_SERVER));
    EXPECT_EQ(create(CLSID_Counter), S_OK);
}

TEST_F(Loading, AClassFactoryAndALockKeepTheServer) {
    ASSERT_EQ(CoLoadServer(TEST_SERVER, CLSID_Counter), S_OK);
    ComPointer<IClassFactory> factory;
    ASSERT_EQ(CoGetClassObject(CLSID_Counter, IClassFactory::iid, factory.putVoid()), S_OK);
    CoFreeUnusedLibraries();
    ASSERT_TRUE(isLoaded(TEST_SERVER));
    EXPECT_EQ(factory->LockServer(true), S_OK);
    factory.reset();
    CoFreeUnusedLibraries();
    ASSERT_TRUE(isLoaded(TEST_SERVER));
    ASSERT_EQ(CoGetClassObject(CLSID_Counter, IClassFactory::iid, factory.putVoid()), S_OK);
    EXPECT_EQ(factory->LockServer(false), S_OK);
    factory.reset();
    CoFreeUnusedLibraries();
    EXPECT_FALSE(isLoaded(TEST_SERVER));
}

TEST_F(Loading, AFailingConstructorIsAResultAndLeavesNothingBehind) {
    for (const CLSID &classId : {CLSID_CannotCreate, CLSID_OutOfMemory, CLSID_Unexpected}) {
        ASSERT_EQ(CoLoadServer(TEST_SERVER, classId), S_OK);
    }
    EXPECT_EQ(create(CLSID_CannotCreate), hresultOf(0x800A01AD));
    EXPECT_EQ(create(CLSID_OutOfMemory), E_OUTOFMEMORY);
    EXPECT_EQ(create(CLSID_Unexpected), E_UNEXPECTED);
    CoFreeUnusedLibraries();
    EXPECT_FALSE(isLoaded(TEST_SERVER));
}

TEST_F(Loading, AggregationIsRefused) {
    ASSERT_EQ(CoLoadServer(TEST_SERVER, CLSID_Counter), S_OK);
    ComPointer<IUnknown> outer;
    ASSERT_EQ(kvex::createInstance(CLSID_Counter, outer), S_OK);
    void *object = outer.get();
    EXPECT_EQ(CoCreateInstance(CLSID_Counter, outer.get(), IUnknown::iid, &object),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
}

TEST_F(Loading, AMissingFileIsNotFoundAndTheReasonIsGiven) {
    const std::string missing = (root() / "missing.so").native();
    EXPECT_EQ(CoLoadServer(missing.c_str(), CLSID_Unknown), CO_E_DLLNOTFOUND);
    EXPECT_NE(std::string_view(CoLoadErrorText()).find("missing.so"), std::string_view::npos);
    EXPECT_EQ(create(CLSID_Unknown), REGDB_E_CLASSNOTREG);
}

TEST_F(Loading, AFileThatIsNoLibraryCannotBeLoaded) {
    const std::string text = (root() / "text.so").native();
    put(text, "This is no library.\n");
    EXPECT_EQ(CoLoadServer(text.c_str(), CLSID_Unknown), CO_E_DLLNOTFOUND);
    EXPECT_EQ(CoRegisterServer(text.c_str()), CO_E_DLLNOTFOUND);
}

TEST_F(Loading, ALibraryThatIsNoServerIsNotKept) {
    EXPECT_EQ(CoLoadServer(TEST_NO_SERVER, CLSID_Unknown), CO_E_ERRORINDLL);
    EXPECT_EQ(CoRegisterServer(TEST_NO_SERVER), CO_E_ERRORINDLL);
    EXPECT_EQ(CoUnregisterServer(TEST_NO_SERVER), CO_E_ERRORINDLL);
    EXPECT_FALSE(isLoaded(TEST_NO_SERVER));
}

TEST_F(Loading, AClassThatTheServerDoesNotHaveIsRefusedAndNothingChanges) {
    EXPECT_EQ(CoLoadServer(TEST_SERVER, CLSID_Unknown), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(create(CLSID_Unknown), REGDB_E_CLASSNOTREG);
    EXPECT_FALSE(isLoaded(TEST_SERVER));
}

TEST_F(Loading, APathIsNeeded) {
    EXPECT_EQ(CoLoadServer(nullptr, CLSID_Counter), E_INVALIDARG);
    EXPECT_EQ(CoRegisterServer(nullptr), E_INVALIDARG);
    EXPECT_EQ(CoUnregisterServer(nullptr), E_INVALIDARG);
}

TEST_F(Loading, ARelativePathIsTakenFromTheWorkingDirectory) {
    const std::filesystem::path before = std::filesystem::current_path();
    const std::filesystem::path file = TEST_SERVER;
    std::filesystem::current_path(file.parent_path());
    EXPECT_EQ(CoLoadServer(("./" / file.filename()).c_str(), CLSID_Counter), S_OK);
    std::filesystem::current_path(before);
    EXPECT_EQ(create(CLSID_Counter), S_OK);
}

TEST_F(Loading, ANameIsAFileInTheFolderOfTheClassServer) {
    put(root() / "libKVEXTest.so", "In the working directory, and no library.\n");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(root());
    const std::string name = std::filesystem::path(TEST_SERVER).filename();
    EXPECT_EQ(CoLoadServer(name.c_str(), CLSID_Counter), S_OK) << CoLoadErrorText();
    EXPECT_EQ(CoLoadServer("libKVEXTest.so", CLSID_Counter), CO_E_DLLNOTFOUND);
    EXPECT_NE(std::string(CoLoadErrorText()).find("No such file"), std::string::npos)
        << CoLoadErrorText();
    EXPECT_EQ(CoRegisterServer("libKVEXTest.so"), CO_E_DLLNOTFOUND);
    std::filesystem::current_path(before);
}

TEST_F(Loading, ThreadsThatNeedAServerAtOnceAllGetObjects) {
    ASSERT_EQ(CoLoadServer(TEST_SERVER, CLSID_Counter), S_OK);
    CoFreeUnusedLibraries();
    constexpr int rounds = 300;
    std::atomic<int> created = 0;
    const auto createMany = [&created] {
        for (int round = 0; round < rounds; ++round) {
            ComPointer<ICounter> counter;
            LONG number = 0;
            if (kvex::createInstance(CLSID_Counter, counter) == S_OK &&
                counter->Next(&number) == S_OK && number == 1) {
                ++created;
            }
        }
    };
    std::thread first(createMany);
    std::thread second(createMany);
    first.join();
    second.join();
    EXPECT_EQ(created, 2 * rounds);
    CoFreeUnusedLibraries();
    EXPECT_FALSE(isLoaded(TEST_SERVER));
}

TEST_F(Loading, FreeingUnusedServersDisturbsNobodyWhileOneObjectIsAlive) {
    ASSERT_EQ(CoLoadServer(TEST_SERVER, CLSID_Counter), S_OK);
    ComPointer<ICounter> kept;
    ASSERT_EQ(kvex::createInstance(CLSID_Counter, kept), S_OK);
    std::atomic<bool> done = false;
    std::thread freeing([&done] {
        while (!done) {
            CoFreeUnusedLibraries();
        }
    });
    for (int round = 0; round < 300; ++round) {
        EXPECT_EQ(create(CLSID_Counter), S_OK);
    }
    done = true;
    freeing.join();
    EXPECT_TRUE(isLoaded(TEST_SERVER));
}

} // namespace

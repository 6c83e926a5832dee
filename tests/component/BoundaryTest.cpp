// The component as any host uses it: loaded from its file and called through its entry points.
#include "adapters/classserver/server/EntryPoints.h"
#include "kvex/ClassServer.h"
#include "kvex/ComObject.h"
#include "kvex/HostSuite.h"
#include "kvex/RuleUI.h"
#include "platform/Error.h"
#include "platform/OwnerThread.h"
#include "platform/Text.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <thread>
#include <unistd.h>

namespace kvex::test {
namespace {

struct HostRecord {
    std::u16string connectionString;
    std::vector<std::u16string> log;
    std::vector<std::u16string> logFiles;
    std::vector<std::int32_t> numbers;
    std::vector<std::u16string> descriptions;
    HRESULT logResult = S_OK;
    std::u16string addedToLogFile;
    int utilitiesAlive = 0;
};

HostRecord &host() {
    static HostRecord record;
    return record;
}

class HostUtilityObject final : public ComObject<IUtility> {
public:
    HostUtilityObject() { ++host().utilitiesAlive; }
    HRESULT GetConnectionString(BSTR *text) noexcept override {
        *text = Bstr(host().connectionString).detach();
        return S_OK;
    }
    HRESULT GetSecondText(BSTR *text) noexcept override {
        *text = Bstr(u"second").detach();
        return S_OK;
    }
    HRESULT WriteErrorLog(BSTR *logFile, ErrorRecord *error, BSTR text, LONG reserved,
                          VARIANT_BOOL *flag, LONG *output) noexcept override {
        EXPECT_EQ(reserved, 0);
        EXPECT_EQ(*flag, -1);
        *output = 7;
        host().log.emplace_back(viewOf(text));
        host().logFiles.emplace_back(viewOf(*logFile));
        host().numbers.push_back(error->number);
        host().descriptions.emplace_back(viewOf(error->description));
        Bstr changed(std::u16string(viewOf(*logFile)) + host().addedToLogFile);
        SysFreeString(*logFile);
        *logFile = changed.detach();
        return host().logResult;
    }
    HRESULT ReportMessage(BSTR *, BSTR, VARIANT_BOOL, VARIANT_BOOL) noexcept override {
        return S_OK;
    }
    HRESULT ShowMessageBox(BSTR, LONG, LONG *result) noexcept override {
        *result = 1;
        return S_OK;
    }

private:
    ~HostUtilityObject() override { --host().utilitiesAlive; }
};

class HostUtilityFactory final : public ComObject<IClassFactory> {
public:
    HRESULT CreateInstance(IUnknown *, const IID &interfaceId, void **object) noexcept override {
        return makeComObject<HostUtilityObject>()->QueryInterface(interfaceId, object);
    }
    HRESULT LockServer(bool) noexcept override { return S_OK; }
};

class CollectingSink final : public ComObject<IDescriptionSink> {
public:
    HRESULT Write(BSTR text, LONG colour) noexcept override {
        pieces.emplace_back(viewOf(text), colour);
        return result;
    }
    std::vector<std::pair<std::u16string, LONG>> pieces;
    HRESULT result = S_OK;
};

class Boundary : public testing::Test {
protected:
    Boundary() {
        host() = HostRecord();
        host().connectionString = database_.connectionString();
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
    }
    ~Boundary() override {
        revoke();
        EXPECT_EQ(host().utilitiesAlive, 0);
    }

    void offerUtility() {
        ASSERT_EQ(CoRegisterClassObject(CLSID_Utility, factory_.get(), &registration_), S_OK);
    }
    void revoke() {
        if (registration_ != 0) {
            CoRevokeClassObject(registration_);
            registration_ = 0;
        }
    }
    template <class Interface> ComPointer<Interface> create() {
        offerUtility();
        EXPECT_EQ(CoLoadServer(KVEX_COMPONENT, CLSID_RuleUI), S_OK) << CoLoadErrorText();
        ComPointer<Interface> object;
        EXPECT_EQ(createInstance(CLSID_RuleUI, object), S_OK);
        return object;
    }

    TestDatabase database_;
    ComPointer<HostUtilityFactory> factory_ = makeComObject<HostUtilityFactory>();
    std::uint32_t registration_ = 0;
};

/// How an error that a method does not trap reaches the host.
HRESULT resultOf(std::int32_t errorNumber) {
    return hresultOf(0x800A0000U + static_cast<std::uint32_t>(errorNumber));
}

template <class Function> Function *entryPoint(const char *name) {
    static void *const component = dlopen(KVEX_COMPONENT, RTLD_NOW | RTLD_LOCAL);
    return reinterpret_cast<Function *>(dlsym(component, name));
}

TEST_F(Boundary, ItsFourEntryPointsAreAllItExports) {
    EXPECT_NE(entryPoint<DllGetClassObjectFunction>("DllGetClassObject"), nullptr);
    EXPECT_NE(entryPoint<DllCanUnloadNowFunction>("DllCanUnloadNow"), nullptr);
    EXPECT_NE(entryPoint<DllRegisterServerFunction>("DllRegisterServer"), nullptr);
    EXPECT_NE(entryPoint<DllUnregisterServerFunction>("DllUnregisterServer"), nullptr);
    EXPECT_EQ(entryPoint<void()>("_ZN4kvex11compositionEv"), nullptr);
}

TEST_F(Boundary, GivesTheFactoryOfItsClassAlone) {
    auto *getClassObject = entryPoint<DllGetClassObjectFunction>("DllGetClassObject");
    ComPointer<IClassFactory> factory;
    EXPECT_EQ(getClassObject(CLSID_RuleUI, IClassFactory::iid, factory.putVoid()), S_OK);
    void *none = &none;
    EXPECT_EQ(getClassObject(CLSID_Utility, IClassFactory::iid, &none), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(none, nullptr);
    none = &none;
    EXPECT_EQ(getClassObject(CLSID_RuleUI, IRuleUI::iid, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(getClassObject(CLSID_RuleUI, IClassFactory::iid, nullptr), E_POINTER);
}

TEST_F(Boundary, RefusesAggregationAndNullsTheResultFirst) {
    offerUtility();
    ComPointer<IClassFactory> factory;
    ASSERT_EQ(entryPoint<DllGetClassObjectFunction>("DllGetClassObject")(
                  CLSID_RuleUI, IClassFactory::iid, factory.putVoid()),
              S_OK);
    void *object = &object;
    EXPECT_EQ(factory->CreateInstance(factory.get(), IUnknown::iid, &object),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    object = &object;
    EXPECT_EQ(factory->CreateInstance(nullptr, IUtility::iid, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IRuleUI::iid, nullptr), E_POINTER);
}

TEST_F(Boundary, AFailingConstructorIsAResult) {
    ComPointer<IClassFactory> factory;
    ASSERT_EQ(entryPoint<DllGetClassObjectFunction>("DllGetClassObject")(
                  CLSID_RuleUI, IClassFactory::iid, factory.putVoid()),
              S_OK);
    void *object = &object;
    // No server offers the utility object.
    EXPECT_EQ(factory->CreateInstance(nullptr, IRuleUI::iid, &object),
              resultOf(error_number::cannotCreateObject));
    EXPECT_EQ(object, nullptr);
    factory.reset();
    EXPECT_EQ(entryPoint<DllCanUnloadNowFunction>("DllCanUnloadNow")(), S_OK);
}

TEST_F(Boundary, CanBeUnloadedOnlyWhenNothingIsAliveOrLocked) {
    auto *canUnload = entryPoint<DllCanUnloadNowFunction>("DllCanUnloadNow");
    EXPECT_EQ(canUnload(), S_OK);
    auto object = create<IRuleUI>();
    EXPECT_EQ(canUnload(), S_FALSE);
    object.reset();
    EXPECT_EQ(canUnload(), S_OK);
    ComPointer<IClassFactory> factory;
    ASSERT_EQ(entryPoint<DllGetClassObjectFunction>("DllGetClassObject")(
                  CLSID_RuleUI, IClassFactory::iid, factory.putVoid()),
              S_OK);
    EXPECT_EQ(factory->LockServer(true), S_OK);
    EXPECT_EQ(factory->LockServer(false), S_OK);
    factory.reset();
    EXPECT_EQ(canUnload(), S_OK);
}

TEST_F(Boundary, OneObjectHasBothInterfacesAndOneIdentity) {
    auto rules = create<IRuleUI>();
    const auto reader = rules.as<IRuleReader>();
    ASSERT_TRUE(reader);
    EXPECT_EQ(rules.as<IUnknown>().get(), reader.as<IUnknown>().get());
    EXPECT_FALSE(rules.as<IUtility>());
}

TEST_F(Boundary, WithoutADisplayTheCallGivesZeroAndTheReasonIsLogged) {
    auto rules = create<IRuleUI>();
    LONG result = -1;
    EXPECT_EQ(rules->ShowRules(Bstr(u"1").get(), Bstr(u"").get(), &result), S_OK);
    EXPECT_EQ(result, 0);
    ASSERT_EQ(host().log.size(), 1U);
    EXPECT_EQ(host().log.front(),
              u"KVEXMessageRules: Error occured. Sub: ShowRuleUI, Module: RuleUI");
    EXPECT_EQ(host().numbers.front(), error_number::cannotCreateObject);
    const auto folder = std::filesystem::path(KVEX_COMPONENT).parent_path().u16string();
    EXPECT_EQ(host().logFiles.front(), folder + u"\\KVEX.log");
}

TEST_F(Boundary, ABadConnectionIsLoggedWithAdvice) {
    host().connectionString = u"Provider=Nobody";
    auto rules = create<IRuleUI>();
    LONG result = -1;
    EXPECT_EQ(rules->ShowRules(nullptr, nullptr, &result), S_OK);
    EXPECT_EQ(result, 0);
    ASSERT_EQ(host().descriptions.size(), 1U);
    EXPECT_NE(host().descriptions.front().find(u"Data Source="), std::u16string::npos)
        << toUtf8(host().descriptions.front());
}

TEST_F(Boundary, TheLogFileGoesToTheUtilityObjectByReference) {
    host().connectionString = u"Provider=Nobody";
    host().addedToLogFile = u".1";
    host().logResult = E_FAIL;
    auto reader = create<IRuleReader>();
    EXPECT_EQ(reader->OpenRules(), resultOf(error_number::automationError));
    host().logResult = S_OK;
    EXPECT_EQ(reader->OpenRules(), E_FAIL);
    EXPECT_EQ(host().logFiles.at(1), host().logFiles.at(0) + u".1");
}

TEST_F(Boundary, AnErrorThatCannotBeLoggedIsAFailedResult) {
    host().connectionString = u"Provider=Nobody";
    host().logResult = E_FAIL;
    auto rules = create<IRuleUI>();
    LONG result = -1;
    EXPECT_EQ(rules->ShowRules(nullptr, nullptr, &result), resultOf(error_number::automationError));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(rules.as<IRuleReader>()->OpenRules(), resultOf(error_number::automationError));
    EXPECT_EQ(rules->ShowRules(nullptr, nullptr, nullptr), E_POINTER);
}

TEST_F(Boundary, RulesAreReadWithoutAWindow) {
    database_.addRule("A", "<WORD><CON><ANY><ASCOMMAND>STOP</WORD>", "<DELETE>YES</DELETE>", 1, 0);
    auto reader = create<IRuleReader>();
    const auto sink = makeComObject<CollectingSink>();
    EXPECT_EQ(reader->DescribeRule(Bstr(u"1").get(), sink.get()), E_UNEXPECTED);
    EXPECT_EQ(reader->DescribeRule(Bstr(u"abc").get(), sink.get()), E_UNEXPECTED);
    EXPECT_EQ(sink->pieces.size(), 0U);
    ASSERT_EQ(reader->OpenRules(), S_OK);
    EXPECT_EQ(reader->DescribeRule(Bstr(u"1").get(), sink.get()), S_OK);
    const std::vector<std::pair<std::u16string, LONG>> expected{
        {u"This Rule is disabled\r\nIf the message contains the words ", 0},
        {u" (as SMS Command) ", 255},
        {u"STOP", 0xFF0000},
        {u"\r\nThen Delete it", 0}};
    EXPECT_EQ(sink->pieces, expected);
    for (const char16_t *none : {u"2", u"abc", u"", u"1 OR 1", u"3000000000"}) {
        EXPECT_EQ(reader->DescribeRule(Bstr(none).get(), sink.get()), S_FALSE);
    }
    EXPECT_EQ(reader->DescribeRule(nullptr, sink.get()), S_FALSE);
    EXPECT_EQ(sink->pieces, expected);
    EXPECT_EQ(reader->DescribeRule(Bstr(u"1").get(), nullptr), E_POINTER);
    sink->result = E_ACCESSDENIED;
    EXPECT_EQ(reader->DescribeRule(Bstr(u"1").get(), sink.get()), E_ACCESSDENIED);
    EXPECT_EQ(reader->OpenRules(), E_FAIL);
    EXPECT_EQ(host().log.size(), 1U);
}

TEST_F(Boundary, AnotherThreadThanTheCreatorsIsRefusedAndToldWhichOneOwnsTheObject) {
    auto rules = create<IRuleUI>();
    ASSERT_EQ(rules.as<IRuleReader>()->OpenRules(), S_OK);
    const std::string owner = toUtf8(OwnerThread().text());
    std::string caller;
    testing::internal::CaptureStderr();
    std::thread([&] {
        caller = toUtf8(OwnerThread().text());
        LONG result = -1;
        EXPECT_EQ(rules->ShowRules(nullptr, nullptr, &result), RPC_E_WRONG_THREAD);
        EXPECT_EQ(result, 0);
        EXPECT_EQ(rules.as<IRuleReader>()->OpenRules(), RPC_E_WRONG_THREAD);
        EXPECT_EQ(rules.as<IRuleReader>()->DescribeRule(Bstr(u"1").get(),
                                                        makeComObject<CollectingSink>().get()),
                  RPC_E_WRONG_THREAD);
    }).join();
    const std::string told = "KVEXMessageRules: RuleUI was called from " + caller +
                             ". The object belongs to " + owner +
                             ". Create, call and release it on one thread.\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), told + told + told);
    EXPECT_EQ(rules.as<IRuleReader>()->DescribeRule(Bstr(u"1").get(),
                                                    makeComObject<CollectingSink>().get()),
              S_FALSE);
    EXPECT_TRUE(host().log.empty());
}

TEST_F(Boundary, AReleaseOnAnotherThreadLeavesTheSessionToTheNextObject) {
    auto rules = create<IRuleUI>();
    ASSERT_EQ(rules.as<IRuleReader>()->OpenRules(), S_OK);
    testing::internal::CaptureStderr();
    std::thread([&] { rules.reset(); }).join();
    EXPECT_NE(testing::internal::GetCapturedStderr().find("RuleUI was released from the thread"),
              std::string::npos);
    EXPECT_EQ(host().utilitiesAlive, 1);
    ComPointer<IRuleReader> next;
    ASSERT_EQ(createInstance(CLSID_RuleUI, next), S_OK);
    EXPECT_EQ(host().utilitiesAlive, 1);
    EXPECT_EQ(next->OpenRules(), S_OK);
}

TEST_F(Boundary, ThreadsHaveObjectsOfTheirOwn) {
    database_.addRule("A", "", "<DELETE>YES</DELETE>");
    auto rules = create<IRuleReader>();
    ASSERT_EQ(rules->OpenRules(), S_OK);
    std::thread([] {
        ComPointer<IRuleReader> reader;
        ASSERT_EQ(createInstance(CLSID_RuleUI, reader), S_OK);
        EXPECT_EQ(reader->OpenRules(), S_OK);
        EXPECT_EQ(reader->DescribeRule(Bstr(u"1").get(), makeComObject<CollectingSink>().get()),
                  S_OK);
    }).join();
    EXPECT_EQ(rules->DescribeRule(Bstr(u"1").get(), makeComObject<CollectingSink>().get()), S_OK);
}

TEST_F(Boundary, StaysLoadedWhenUnusedServersAreFreed) {
    create<IRuleReader>().reset();
    CoFreeUnusedLibraries();
    void *const component = dlopen(KVEX_COMPONENT, RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD);
    EXPECT_NE(component, nullptr);
    ComPointer<IRuleReader> reader;
    EXPECT_EQ(createInstance(CLSID_RuleUI, reader), S_OK);
    EXPECT_EQ(reader->OpenRules(), S_OK);
    reader.reset();
    CoFreeUnusedLibraries();
    EXPECT_EQ(dlclose(component), 0);
}

TEST_F(Boundary, AfterTheReleaseOfAnotherObjectNoSessionIsOpen) {
    auto reader = create<IRuleReader>();
    ASSERT_EQ(reader->OpenRules(), S_OK);
    ComPointer<IRuleUI> other;
    ASSERT_EQ(createInstance(CLSID_RuleUI, other), S_OK);
    EXPECT_EQ(reader->DescribeRule(Bstr(u"1").get(), makeComObject<CollectingSink>().get()),
              E_UNEXPECTED);
    other.reset();
    EXPECT_EQ(reader->DescribeRule(Bstr(u"1").get(), makeComObject<CollectingSink>().get()),
              E_UNEXPECTED);
}

TEST_F(Boundary, ARuleThatFailsInPartIsDescribedAsFarAsItCanBeRead) {
    database_.addRule("A", "<PEOPLE><CON><ANY>1</PEOPLE><WORD>", "");
    auto reader = create<IRuleReader>();
    ASSERT_EQ(reader->OpenRules(), S_OK);
    const auto sink = makeComObject<CollectingSink>();
    EXPECT_EQ(reader->DescribeRule(Bstr(u"1").get(), sink.get()), S_OK);
    ASSERT_EQ(sink->pieces.size(), 2U);
    EXPECT_EQ(sink->pieces.back().first, u"1");
    EXPECT_EQ(host().log,
              std::vector<std::u16string>{u"KVEXMessageRules: Error occured. Sub: LoadRuleFromDB, "
                                          u"Module: General"});
    host().logResult = E_FAIL;
    EXPECT_EQ(reader->DescribeRule(Bstr(u"1").get(), sink.get()),
              resultOf(error_number::automationError));
}

TEST_F(Boundary, StartsInAFolderWhoseNameIsNoUtf8) {
    const auto base =
        std::filesystem::temp_directory_path() / ("kvex-boundary-" + std::to_string(getpid()));
    const auto folder = base / "k\xFFx";
    std::filesystem::create_directories(folder);
    std::filesystem::copy(KVEX_COMPONENT, folder / "component.so");
    offerUtility();
    ASSERT_EQ(CoLoadServer((folder / "component.so").c_str(), CLSID_RuleUI), S_OK)
        << CoLoadErrorText();
    host().connectionString = u"Provider=Nobody";
    ComPointer<IRuleReader> reader;
    EXPECT_EQ(createInstance(CLSID_RuleUI, reader), S_OK);
    if (reader) {
        EXPECT_EQ(reader->OpenRules(), E_FAIL);
        EXPECT_EQ(host().logFiles,
                  std::vector<std::u16string>{base.u16string() + u"/k\uFFFDx\\KVEX.log"});
    }
    reader.reset();
    std::filesystem::remove_all(base);
}

TEST_F(Boundary, RegistersForLookUpByNameAndUnregistersTwiceWithoutHarm) {
    const auto home =
        std::filesystem::temp_directory_path() / ("kvex-boundary-" + std::to_string(getpid()));
    std::filesystem::create_directories(home);
    setenv("XDG_DATA_HOME", home.c_str(), 1);
    CLSID found{};
    EXPECT_EQ(CLSIDFromProgID(RuleUIProgramId, &found), CO_E_CLASSSTRING);
    auto *registerServer = entryPoint<DllRegisterServerFunction>("DllRegisterServer");
    auto *unregisterServer = entryPoint<DllUnregisterServerFunction>("DllUnregisterServer");
    EXPECT_EQ(registerServer(), S_OK);
    EXPECT_EQ(registerServer(), S_OK);
    EXPECT_EQ(CLSIDFromProgID(RuleUIProgramId, &found), S_OK);
    EXPECT_TRUE(found == CLSID_RuleUI);
    EXPECT_EQ(unregisterServer(), S_OK);
    EXPECT_EQ(unregisterServer(), S_OK);
    EXPECT_EQ(CLSIDFromProgID(RuleUIProgramId, &found), CO_E_CLASSSTRING);
    unsetenv("XDG_DATA_HOME");
    std::filesystem::remove_all(home);
}

} // namespace
} // namespace kvex::test

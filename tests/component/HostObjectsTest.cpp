// How the component calls the host's objects. Strict fakes behind each interface record every call
// with its arguments.
#include "component/HostObjects.h"

#include "adapters/classserver/server/ServerObject.h"
#include "kvex/ComPointer.h"
#include "kvex/HostSuite.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

using Calls = std::vector<std::string>;

struct Host {
    Calls calls;
    HRESULT result = S_OK;
    VARIANT_BOOL initResult = VARIANT_TRUE;
    bool givesCollections = true;
    HRESULT itemResult = S_OK;
};

Host &host() {
    static Host record;
    return record;
}

std::string shown(BSTR text) {
    return "'" + toUtf8(viewOf(text)) + "'";
}

template <class... Arguments> HRESULT called(const char *name, const Arguments &...arguments) {
    std::string call = name;
    ((call += " " + arguments), ...);
    host().calls.push_back(call);
    return host().result;
}

/// Changes the text as a callee changes an argument that is passed by reference.
void change(BSTR *text) {
    Bstr changed(std::u16string(viewOf(*text)) + u"+");
    SysFreeString(*text);
    *text = changed.detach();
}

class StrictUtility final : public ComObject<IUtility> {
public:
    HRESULT GetConnectionString(BSTR *text) noexcept override {
        *text = Bstr(u"DATABASE").detach();
        return called("GetConnectionString");
    }
    HRESULT GetSecondText(BSTR *text) noexcept override {
        *text = Bstr(u"SECOND").detach();
        return called("GetSecondText");
    }
    HRESULT WriteErrorLog(BSTR *logFile, ErrorRecord *error, BSTR text, LONG reserved,
                          VARIANT_BOOL *flag, LONG *output) noexcept override {
        const std::string file = shown(*logFile);
        change(logFile);
        *output = 5;
        return called("WriteErrorLog", file, std::to_string(error->number),
                      shown(error->description), shown(error->source),
                      std::to_string(error->helpContext), shown(text), std::to_string(reserved),
                      std::to_string(*flag));
    }
    HRESULT ReportMessage(BSTR *logFile, BSTR text, VARIANT_BOOL first,
                          VARIANT_BOOL second) noexcept override {
        const std::string file = shown(*logFile);
        change(logFile);
        return called("ReportMessage", file, shown(text), std::to_string(first),
                      std::to_string(second));
    }
    HRESULT ShowMessageBox(BSTR text, LONG style, LONG *result) noexcept override {
        *result = 6;
        return called("ShowMessageBox", shown(text), std::to_string(style));
    }
};

class StrictTexts final : public ComObject<ITextCollection> {
public:
    explicit StrictTexts(std::string name) : name_(std::move(name)) {}

    HRESULT GetCount(LONG *count) noexcept override {
        *count = 2;
        return called((name_ + ".GetCount").c_str());
    }
    HRESULT GetItem(LONG index, BSTR *text) noexcept override {
        *text = index == 1 ? nullptr : Bstr(u"98").detach();
        called((name_ + ".GetItem").c_str(), std::to_string(index));
        return host().itemResult;
    }

private:
    ~StrictTexts() override { host().calls.push_back(name_ + " released"); }

    std::string name_;
};

class StrictContacts final : public ComObject<IManageContacts> {
public:
    HRESULT Init(BSTR first, BSTR connectionString, LONG mode, BSTR *secondText, BSTR *logFile,
                 VARIANT_BOOL *success) noexcept override {
        const std::string second = shown(*secondText);
        const std::string file = shown(*logFile);
        change(secondText);
        change(logFile);
        *success = host().initResult;
        return called("Init", shown(first), shown(connectionString), std::to_string(mode), second,
                      file);
    }
    HRESULT SelectRecipients(LONG userId, VARIANT_BOOL multiple, LONG *code) noexcept override {
        *code = 1;
        return called("SelectRecipients", std::to_string(userId), std::to_string(multiple));
    }
    HRESULT GetSelectedItems(ITextCollection **items) noexcept override {
        return give("Items", items);
    }
    HRESULT GetSelectedNumbers(ITextCollection **numbers) noexcept override {
        return give("Numbers", numbers);
    }

private:
    static HRESULT give(const char *name, ITextCollection **collection) {
        *collection = host().givesCollections ? makeComObject<StrictTexts>(name).detach() : nullptr;
        return called("GetSelected", std::string(name));
    }
};

class HostObjects : public testing::Test {
protected:
    HostObjects() { host() = Host(); }
    ~HostObjects() override {
        for (const std::uint32_t registration : registrations_) {
            CoRevokeClassObject(registration);
        }
    }
    template <class Object> void offer(const CLSID &classId) {
        const auto factory = makeComObject<ClassFactory>(
            []() -> ComPointer<IUnknown> { return makeComObject<Object>(); });
        ASSERT_EQ(CoRegisterClassObject(classId, factory.get(), &registrations_.emplace_back()),
                  S_OK);
    }
    std::unique_ptr<Utility> utility() {
        offer<StrictUtility>(CLSID_Utility);
        return createHostUtility();
    }
    std::unique_ptr<AddressBook> addressBook() {
        offer<StrictContacts>(CLSID_ManageContacts);
        return createHostAddressBook();
    }

private:
    std::vector<std::uint32_t> registrations_;
};

TEST_F(HostObjects, ThatNobodyOffersCannotBeCreated) {
    EXPECT_EQ(errorNumber(createHostUtility), error_number::cannotCreateObject);
    EXPECT_EQ(errorNumber(createHostAddressBook), error_number::cannotCreateObject);
}

TEST_F(HostObjects, TheUtilityObjectGetsEveryArgument) {
    const auto object = utility();
    std::u16string logFile = u"LOG";
    EXPECT_EQ(object->connectionString(), u"DATABASE");
    EXPECT_EQ(object->secondText(), u"SECOND");
    object->writeErrorLog(logFile, Error(13, u"WHY", u"WHERE", HelpContext::locked), u"TEXT", 0,
                          -1);
    object->reportMessage(logFile, u"TEXT", true, true);
    object->reportMessage(logFile, u"TEXT", false, true);
    object->reportMessage(logFile, u"TEXT", true, false);
    EXPECT_EQ(object->showMessageBox(u"TEXT", 48), 6);
    EXPECT_EQ(logFile, u"LOG++++");
    EXPECT_EQ(host().calls,
              (Calls{"GetConnectionString", "GetSecondText",
                     "WriteErrorLog 'LOG' 13 'WHY' 'WHERE' 27 'TEXT' 0 -1",
                     "ReportMessage 'LOG+' 'TEXT' -1 -1", "ReportMessage 'LOG++' 'TEXT' 0 -1",
                     "ReportMessage 'LOG+++' 'TEXT' -1 0", "ShowMessageBox 'TEXT' 48"}));
}

TEST_F(HostObjects, AFailureOfTheUtilityObjectIsAnAutomationErrorAndReferencesGoBack) {
    const auto object = utility();
    host().result = E_FAIL;
    std::u16string logFile = u"LOG";
    EXPECT_EQ(errorNumber([&] { return object->connectionString(); }),
              error_number::automationError);
    EXPECT_EQ(errorNumber([&] { return object->secondText(); }), error_number::automationError);
    EXPECT_EQ(errorNumber([&] {
                  object->writeErrorLog(logFile, Error(13), u"TEXT", 0, -1);
                  return 0;
              }),
              error_number::automationError);
    EXPECT_EQ(errorNumber([&] {
                  object->reportMessage(logFile, u"TEXT", true, true);
                  return 0;
              }),
              error_number::automationError);
    EXPECT_EQ(errorNumber([&] { return object->showMessageBox(u"TEXT", 48); }),
              error_number::automationError);
    EXPECT_EQ(logFile, u"LOG++");
}

TEST_F(HostObjects, TheAddressBookGetsEveryArgument) {
    const auto object = addressBook();
    std::u16string second = u"SECOND";
    std::u16string logFile = u"LOG";
    EXPECT_TRUE(object->init(u"", u"DATABASE", 1, second, logFile));
    EXPECT_EQ(second, u"SECOND+");
    EXPECT_EQ(logFile, u"LOG+");
    EXPECT_EQ(object->selectRecipients(7, true), 1);
    EXPECT_EQ(object->selectRecipients(7, false), 1);
    EXPECT_EQ(host().calls, (Calls{"Init '' 'DATABASE' 1 'SECOND' 'LOG'", "SelectRecipients 7 -1",
                                   "SelectRecipients 7 0"}));
    host().initResult = VARIANT_FALSE;
    EXPECT_FALSE(object->init(u"", u"DATABASE", 1, second, logFile));
}

TEST_F(HostObjects, AFailureOfTheAddressBookIsAnAutomationErrorAndReferencesGoBack) {
    const auto object = addressBook();
    host().result = E_FAIL;
    std::u16string second = u"SECOND";
    std::u16string logFile = u"LOG";
    EXPECT_EQ(errorNumber([&] { return object->init(u"", u"DATABASE", 1, second, logFile); }),
              error_number::automationError);
    EXPECT_EQ(second + logFile, u"SECOND+LOG+");
    EXPECT_EQ(errorNumber([&] { return object->selectRecipients(7, true); }),
              error_number::automationError);
    EXPECT_EQ(errorNumber([&] { return object->selectedItems(); }), error_number::automationError);
    EXPECT_EQ(errorNumber([&] { return object->selectedNumbers(); }),
              error_number::automationError);
}

TEST_F(HostObjects, ACollectionIsReadOnlyWhereItIsAsked) {
    const auto object = addressBook();
    auto items = object->selectedItems();
    auto numbers = object->selectedNumbers();
    EXPECT_EQ(host().calls, (Calls{"GetSelected Items", "GetSelected Numbers"}));
    host().calls.clear();
    EXPECT_EQ(numbers->count(), 2);
    EXPECT_EQ(numbers->item(1), u"");
    EXPECT_EQ(numbers->item(2), u"98");
    host().itemResult = E_INVALIDARG;
    EXPECT_EQ(errorNumber([&] { return numbers->item(2); }), error_number::automationError);
    numbers.reset();
    items.reset();
    EXPECT_EQ(host().calls, (Calls{"Numbers.GetCount", "Numbers.GetItem 1", "Numbers.GetItem 2",
                                   "Numbers.GetItem 2", "Numbers released", "Items released"}));
}

TEST_F(HostObjects, ACollectionThatTheHostDoesNotGiveIsNone) {
    const auto object = addressBook();
    host().givesCollections = false;
    EXPECT_EQ(object->selectedItems(), nullptr);
    EXPECT_EQ(object->selectedNumbers(), nullptr);
}

} // namespace
} // namespace kvex::test

#include "host/suite/UtilityObject.h"

#include "host/suite/Advice.h"
#include "host/suite/SuiteState.h"
#include "platform/Text.h"
#include "platform/controls/Toolkit.h"
#include "tests/host/EnvironmentVariables.h"
#include "tests/host/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace kvex::host {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

struct Shown {
    std::u16string text;
    std::int32_t style;
};

/// Keeps every message as a user would read it, and always gives the same answer.
class ToldUtility final : public UtilityObject {
public:
    std::vector<Shown> shown;
    std::int32_t answer = message_box::ok;
    bool hasNoWindows = false;

private:
    ~ToldUtility() final = default;
    std::int32_t showMessage(const std::u16string &text, std::int32_t style) final {
        if (hasNoWindows) {
            throw Error(error_number::cannotCreateObject);
        }
        shown.push_back({text, style});
        return answer;
    }
};

class Utility : public testing::Test {
protected:
    void SetUp() override { suiteState() = SuiteState{u"DSN=sms", u"second", ErrorLog(file)}; }
    void TearDown() override { suiteState() = SuiteState(); }

    HRESULT logError(std::int32_t number, std::u16string_view description,
                     VARIANT_BOOL flag = VARIANT_TRUE) {
        Bstr logFile(u"/nowhere\\KVEX.log");
        const Bstr source(u"the source");
        const Bstr text(u"the text");
        const Bstr described(description);
        ErrorRecord error{number, described.get(), source.get(), static_cast<LONG>(context)};
        LONG output = 99;
        const HRESULT result =
            utility->WriteErrorLog(logFile.inOut(), &error, text.get(), 0, &flag, &output);
        EXPECT_EQ(output, 0);
        return result;
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder / "log";
    /// Of the errors that are logged.
    HelpContext context = HelpContext::none;
    ComPointer<ToldUtility> utility = makeComObject<ToldUtility>();
};

TEST_F(Utility, GivesTheConfiguredTexts) {
    Bstr text;
    EXPECT_EQ(utility->GetConnectionString(text.put()), S_OK);
    EXPECT_EQ(text.text(), u"DSN=sms");
    EXPECT_EQ(utility->GetSecondText(text.put()), S_OK);
    EXPECT_EQ(text.text(), u"second");
}

TEST_F(Utility, OnlyLogsAnErrorOfTheRuntime) {
    EXPECT_EQ(logError(13, u"Type mismatch"), S_OK);
    EXPECT_THAT(readFile(file),
                MatchesRegex("[-0-9T:+]+\tthe text\t13\tthe source\tType mismatch\n"));
    EXPECT_TRUE(utility->shown.empty());
    EXPECT_EQ(suiteState().lastError.value().error.description(), u"Type mismatch");
}

TEST_F(Utility, ShowsAnErrorOfTheDatabaseAsWell) {
    context = HelpContext::changedByAnother;
    EXPECT_EQ(logError(-2147217864, u"The change was not stored. Another user was first."), S_OK);
    EXPECT_THAT(readFile(file), HasSubstr("\t-2147217864\t"));
    ASSERT_EQ(utility->shown.size(), 1U);
    EXPECT_EQ(utility->shown[0].style, message_box::exclamation);
    const std::string told = toUtf8(utility->shown[0].text);
    EXPECT_EQ(told,
              "The database reported an error.\r\n\r\nThe change was not stored. Another user was "
              "first. To change what is stored now, open the rules again and repeat the "
              "change.\r\n\r\nThe error is logged in " +
                  file.string() + ".");
}

TEST_F(Utility, ShowsAnErrorOfTheRuntimeThatConcernsTheUser) {
    context = HelpContext::noPrimaryKey;
    EXPECT_EQ(logError(5, u"The table has no key."), S_OK);
    ASSERT_EQ(utility->shown.size(), 1U);
    EXPECT_THAT(toUtf8(utility->shown[0].text),
                HasSubstr("The table has no key. Make the column ID the primary key"));
    EXPECT_THAT(readFile(file), testing::EndsWith("\tThe table has no key.\n"));
}

TEST_F(Utility, TellsEachTimeWhatIsNotStoredAndOnceWhatIsNotRead) {
    struct Meaning {
        HelpContext context;
        const char16_t *headline;
        bool once;
    };
    for (const Meaning &meaning :
         {Meaning{HelpContext::ruleReadInPart, u"Not all of this rule could be read.", true},
          Meaning{HelpContext::listEndsEarly, u"Not everything is listed.", true},
          Meaning{HelpContext::ruleNotStored, u"OK ended with an error.", false},
          Meaning{HelpContext::orderNotStored, u"OK ended with an error.", false},
          Meaning{HelpContext::ruleNotRemoved, u"Remove ended with an error.", false},
          Meaning{HelpContext::locked, u"The database reported an error.", false}}) {
        context = meaning.context;
        logError(5, u"Invalid call.");
        ASSERT_EQ(utility->shown.size(), 1U);
        const std::u16string advice = adviceFor(context, Place::rulesWindows);
        EXPECT_NE(advice, u"");
        EXPECT_EQ(utility->shown[0].text,
                  std::u16string(meaning.headline) + u"\r\n\r\nInvalid call. " + advice +
                      u"\r\n\r\nThe error is logged in " + fromUtf8(file.string()) + u".");
        logError(5, u"Invalid call.");
        EXPECT_EQ(utility->shown.size(), meaning.once ? 1U : 2U);
        logError(5, u"Another call.");
        EXPECT_EQ(utility->shown.size(), meaning.once ? 2U : 3U);
        utility = makeComObject<ToldUtility>();
    }
}

TEST_F(Utility, KeepsTheFirstAndTheLastError) {
    logError(13, u"Type mismatch");
    logError(5, u"Invalid call");
    EXPECT_EQ(suiteState().firstError.value().error.number(), 13);
    EXPECT_EQ(suiteState().firstError.value().text, u"the text");
    EXPECT_EQ(suiteState().lastError.value().error.number(), 5);
}

TEST_F(Utility, NamesNoLogThatCouldNotBeWritten) {
    writeFile(folder / "file", "");
    EnvironmentVariables environment;
    environment.set("XDG_STATE_HOME", (folder / "file").string());
    suiteState().log = ErrorLog(folder / "file/log");
    testing::internal::CaptureStderr();
    logError(-1, u"refused");
    static_cast<void>(testing::internal::GetCapturedStderr());
    ASSERT_EQ(utility->shown.size(), 1U);
    EXPECT_THAT(toUtf8(utility->shown[0].text), testing::EndsWith("refused"));
}

TEST_F(Utility, DoesNotShowAnErrorWhoseFlagIsFalse) {
    EXPECT_EQ(logError(-1, u"refused", VARIANT_FALSE), S_OK);
    EXPECT_THAT(readFile(file), HasSubstr("refused"));
    EXPECT_TRUE(utility->shown.empty());
}

TEST_F(Utility, ShowsNoPassword) {
    logError(-1, u"DSN=sms;PWD=s3cret is refused");
    ASSERT_EQ(utility->shown.size(), 1U);
    EXPECT_THAT(toUtf8(utility->shown[0].text), testing::Not(HasSubstr("s3cret")));
    EXPECT_THAT(readFile(file), testing::Not(HasSubstr("s3cret")));
}

TEST_F(Utility, WritesToStandardErrorWhatItCannotShow) {
    utility->hasNoWindows = true;
    testing::internal::CaptureStderr();
    EXPECT_EQ(logError(-1, u"refused"), S_OK);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("refused"));
}

TEST_F(Utility, LogsAReportedMessageWithoutAnError) {
    Bstr logFile(u"/nowhere\\KVEX.log");
    const Bstr text(u"The address book could not be opened");
    EXPECT_EQ(utility->ReportMessage(logFile.inOut(), text.get(), VARIANT_TRUE, VARIANT_TRUE),
              S_OK);
    EXPECT_THAT(readFile(file), MatchesRegex("[-0-9T:+]+\tThe address book could not be opened\n"));
    EXPECT_TRUE(utility->shown.empty());
}

TEST_F(Utility, GivesTheUsersAnswer) {
    utility->answer = message_box::yes;
    LONG result = 0;
    const Bstr text(u"Are you sure?");
    EXPECT_EQ(utility->ShowMessageBox(text.get(), message_box::yesNo, &result), S_OK);
    EXPECT_EQ(result, message_box::yes);
    ASSERT_EQ(utility->shown.size(), 1U);
    EXPECT_EQ(utility->shown[0].text, u"Are you sure?");
    EXPECT_EQ(utility->shown[0].style, message_box::yesNo);
}

TEST_F(Utility, FailsWhenAMessageBoxCannotBeShown) {
    utility->hasNoWindows = true;
    LONG result = 0;
    EXPECT_TRUE(FAILED(utility->ShowMessageBox(nullptr, message_box::exclamation, &result)));
}

TEST_F(Utility, RefusesNullPointers) {
    Bstr logFile;
    ErrorRecord error{};
    EXPECT_EQ(utility->GetConnectionString(nullptr), E_POINTER);
    EXPECT_EQ(utility->GetSecondText(nullptr), E_POINTER);
    EXPECT_EQ(utility->WriteErrorLog(nullptr, &error, nullptr, 0, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(utility->WriteErrorLog(logFile.inOut(), nullptr, nullptr, 0, nullptr, nullptr),
              E_POINTER);
    EXPECT_EQ(utility->ReportMessage(nullptr, nullptr, VARIANT_TRUE, VARIANT_TRUE), E_POINTER);
    EXPECT_EQ(utility->ShowMessageBox(nullptr, message_box::exclamation, nullptr), E_POINTER);
}

} // namespace
} // namespace kvex::host

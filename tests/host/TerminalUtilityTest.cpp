#include "host/kvexrules/TerminalUtility.h"

#include "host/suite/SuiteState.h"
#include "platform/controls/Toolkit.h"
#include "tests/host/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

class TerminalUtility : public testing::Test {
protected:
    void SetUp() override { testing::internal::CaptureStderr(); }
    void TearDown() override { suiteState() = SuiteState(); }

    ComPointer<IUtility> utility = makeComObject<kvex::host::TerminalUtility>();
};

TEST_F(TerminalUtility, PrintsAMessage) {
    LONG result = 0;
    EXPECT_EQ(
        utility->ShowMessageBox(Bstr(u"Type a name.").get(), message_box::exclamation, &result),
        S_OK);
    EXPECT_EQ(result, message_box::ok);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "kvexrules: Type a name.\n");
}

TEST_F(TerminalUtility, AnswersAQuestionWithNo) {
    LONG result = 0;
    EXPECT_EQ(utility->ShowMessageBox(Bstr(u"Sure?").get(), message_box::yesNo, &result), S_OK);
    EXPECT_EQ(result, message_box::no);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "kvexrules: Sure?\n");
}

TEST_F(TerminalUtility, LeavesADatabasesErrorToItsCommand) {
    const TemporaryFolder folder;
    suiteState().log = ErrorLog(folder / "a.log");
    const Bstr why(u"refused");
    ErrorRecord error{-1, why.get(), nullptr, 0};
    Bstr logFile(u"");
    EXPECT_EQ(utility->WriteErrorLog(logFile.inOut(), &error, nullptr, 0, nullptr, nullptr), S_OK);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_NE(readFile(folder / "a.log").find("refused"), std::string::npos);
}

} // namespace
} // namespace kvex::host

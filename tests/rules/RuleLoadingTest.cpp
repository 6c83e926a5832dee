#include "rules/RuleState.h"

#include "platform/Text.h"
#include "tests/support/ComponentTest.h"

namespace kvex::test {
namespace {

const std::u16string loadFailed = u"Sub: LoadRuleFromDB, Module: General";

class RuleLoading : public ComponentTest {
protected:
    std::int64_t load(std::string_view queryParam, std::string_view actionParam = "",
                      int active = 1) {
        const std::int64_t id = database.addRule("Rule", queryParam, actionParam, 1, active);
        openSession();
        LoadRuleFromDB(toText(id));
        return id;
    }
};

TEST_F(RuleLoading, ReadsNameAndActive) {
    load("<ALLMESSAGES>");
    EXPECT_EQ(ruleState().strRuleName, u"Rule");
    EXPECT_EQ(ruleState().intRuleActive, 1);
}

TEST_F(RuleLoading, LeavesTheRecordSetOnTheRulesRow) {
    database.addRule("First");
    const auto id = load("<ALLMESSAGES>");
    EXPECT_EQ(session().rsRules->field(u"ID").text(), toText(id));
}

TEST_F(RuleLoading, AnEmptyIdClearsTheRuleAndMovesNothing) {
    database.addRule("First", "<PEOPLE><CON><ANY>1</PEOPLE>");
    const auto second = load("<PEOPLE><CON><ANY>2</PEOPLE>");
    LoadRuleFromDB(u"");
    EXPECT_EQ(ruleState().strRuleName, u"");
    EXPECT_EQ(ruleState().strPeople, u"");
    EXPECT_EQ(session().rsRules->field(u"ID").text(), toText(second));
}

TEST_F(RuleLoading, AllMessagesLeavesServiceMessagesAtNo) {
    load("<ALLMESSAGES>");
    EXPECT_TRUE(ruleState().blnAllMessages);
    EXPECT_EQ(ruleState().strIgnoreIfService, u"NO");
}

TEST_F(RuleLoading, ReadsEveryTagOfARow) {
    load("<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><PEOPLE><NOT><ANY>1;2</PEOPLE>"
         "<ACCOUNT><CON><ALL>3;4</ACCOUNT><WORD><CON><ANY>STOP</WORD>"
         "<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>",
         "<DIST>3;7</DIST><REPLY>Received;2</REPLY><ALERT>New;2;98</ALERT><DELETE>YES</DELETE>"
         "<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>");
    const RuleState &rule = ruleState();
    EXPECT_FALSE(rule.blnAllMessages);
    EXPECT_EQ(rule.strIgnoreIfService, u"YES");
    EXPECT_EQ(rule.strPeople, u"1;2");
    EXPECT_EQ(rule.intPeopleNot, 1);
    EXPECT_EQ(rule.varAccounts, u"3;4");
    EXPECT_EQ(rule.intAccountAll, 1);
    EXPECT_EQ(rule.strWords, u"STOP");
    EXPECT_EQ(rule.strDateTime, u"20240301 09:00:00,20240331 18:30:00");
    EXPECT_EQ(rule.strDistribution, u"3;7");
    EXPECT_EQ(rule.strReplyText, u"Received");
    EXPECT_EQ(rule.strReplyAccount, u"2");
    EXPECT_EQ(rule.strAlertText, u"New");
    EXPECT_EQ(rule.strAlertAccount, u"2");
    EXPECT_EQ(rule.strAlertRecipients, u"98");
    EXPECT_EQ(rule.varDelete, u"YES");
    EXPECT_EQ(rule.strIgnoreFurtherRules, u"YES");
}

TEST_F(RuleLoading, TagsThatDoNotOccurStayCleared) {
    ruleState().strWords = u"old";
    ruleState().varDelete = u"YES";
    load("", "");
    EXPECT_EQ(ruleState().strWords, u"");
    EXPECT_EQ(ruleState().varDelete, u"NO");
}

TEST_F(RuleLoading, ParametersWithoutValueHoldNoTag) {
    const auto id = database.addRule("Rule");
    database.execute("UPDATE SMS_RULES SET QueryParam = NULL, ActionParam = NULL");
    openSession();
    LoadRuleFromDB(toText(id));
    EXPECT_EQ(ruleState().strRuleName, u"Rule");
    EXPECT_FALSE(ruleState().blnAllMessages);
}

TEST_F(RuleLoading, ParametersThatAreNumbersHoldNoTag) {
    const auto id = database.addRule("Rule");
    database.execute("UPDATE SMS_RULES SET ActionParam = '<DELETE>YES</DELETE>'");
    createSession();
    session().cnMain->open(database.connectionString());
    session().rsRules->open(
        u"SELECT ID, Name, ACTIVE, 12 AS QueryParam, ActionParam FROM SMS_RULES",
        *session().cnMain);
    LoadRuleFromDB(toText(id));
    EXPECT_FALSE(ruleState().blnAllMessages);
    EXPECT_EQ(ruleState().varDelete, u"YES");
    expectLog({});
}

TEST_F(RuleLoading, AnUnknownIdIsLoggedAndLeavesTheRuleCleared) {
    ruleState().strPeople = u"old";
    load("<ALLMESSAGES>");
    LoadRuleFromDB(u"999");
    EXPECT_EQ(ruleState().strRuleName, u"");
    EXPECT_FALSE(ruleState().blnAllMessages);
    expectLog({loadFailed});
    EXPECT_EQ(logged.at(0).number, error_number::noCurrentRecord);
}

TEST_F(RuleLoading, AnIdThatIsNoNumberIsLogged) {
    load("<ALLMESSAGES>");
    LoadRuleFromDB(u"abc");
    expectLog({loadFailed});
    EXPECT_EQ(logged.at(0).number, error_number::badArgument);
}

TEST_F(RuleLoading, ANameWithoutValueIsLogged) {
    const auto id = database.addRule("Rule");
    database.execute("UPDATE SMS_RULES SET Name = NULL");
    openSession();
    LoadRuleFromDB(toText(id));
    expectLog({loadFailed});
    EXPECT_EQ(logged.at(0).number, error_number::invalidUseOfNull);
    EXPECT_FALSE(ruleState().blnAllMessages);
}

TEST_F(RuleLoading, ActiveWithoutValueIsLoggedBehindTheName) {
    const auto id = database.addRule("Rule");
    database.execute("UPDATE SMS_RULES SET ACTIVE = NULL");
    openSession();
    LoadRuleFromDB(toText(id));
    expectLog({loadFailed});
    EXPECT_EQ(logged.at(0).number, error_number::invalidUseOfNull);
    EXPECT_EQ(ruleState().strRuleName, u"Rule");
}

TEST_F(RuleLoading, AnOpeningTagAloneIsLoggedAndWhatWasReadBeforeStays) {
    load("<PEOPLE><CON><ANY>1</PEOPLE><WORD><CON><ANY>STOP", "<DELETE>YES</DELETE>");
    expectLog({loadFailed});
    EXPECT_EQ(logged.at(0).number, error_number::invalidCall);
    EXPECT_EQ(ruleState().strPeople, u"1");
    EXPECT_EQ(ruleState().strWords, u"");
    EXPECT_EQ(ruleState().varDelete, u"NO");
}

TEST_F(RuleLoading, AFieldLongerThanSixteenBitsAddressIsLogged) {
    load("<PEOPLE><CON><ANY>" + std::string(40000, '9') + "</PEOPLE>");
    expectLog({loadFailed});
    EXPECT_EQ(logged.at(0).number, error_number::overflow);
}

TEST_F(RuleLoading, TheCommandMarkOutlivesALoadWithoutWords) {
    const auto command = database.addRule("Command", "<WORD><CON><ANY><ASCOMMAND>STOP</WORD>");
    const auto plain = database.addRule("Plain", "<PEOPLE><CON><ANY>1</PEOPLE>");
    const auto words = database.addRule("Words", "<WORD><CON><ANY>HALT</WORD>");
    openSession();
    LoadRuleFromDB(toText(command));
    EXPECT_EQ(ruleState().intAsCommand, 1);
    LoadRuleFromDB(toText(plain));
    EXPECT_EQ(ruleState().intAsCommand, 1);
    LoadRuleFromDB(toText(words));
    EXPECT_EQ(ruleState().intAsCommand, 0);
}

TEST_F(RuleLoading, TwoFailuresInARowAreTwoEntries) {
    load("<ALLMESSAGES>");
    LoadRuleFromDB(u"999");
    LoadRuleFromDB(u"999");
    expectLog({loadFailed, loadFailed});
}

TEST_F(RuleLoading, BeforeTheSessionIsOpenItIsLogged) {
    createSession();
    LoadRuleFromDB(u"1");
    expectLog({loadFailed});
    EXPECT_EQ(logged.at(0).number, error_number::objectClosed);
}

} // namespace
} // namespace kvex::test

// Rules as a host reads and writes them, compared with the code of the component itself.
#include "fuzz/InputRule.h"
#include "host/rules/Rule.h"
#include "rules/ParameterStrings.h"
#include "tests/support/LoadedComponent.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace kvex::host {
namespace {

using test::LoadedComponent;

/// The entries joined as the component keeps them.
std::u16string listOf(const Entries &entries) {
    std::u16string list;
    for (std::size_t at = 0; at < entries.size(); ++at) {
        list += (at > 0 ? u";" : u"") + entries[at];
    }
    return list;
}

RuleState stateOf(const RuleValues &values) {
    RuleState rule;
    const auto flag = [](bool value) { return static_cast<std::int16_t>(value ? 1 : 0); };
    rule.blnAllMessages = values.allMessages;
    rule.strIgnoreIfService = values.ignoreIfService;
    rule.intPeopleNot = flag(values.people.negated);
    rule.intPeopleAll = flag(values.people.all);
    rule.strPeople = listOf(values.people.entries);
    rule.intAccountNot = flag(values.accounts.negated);
    rule.intAccountAll = flag(values.accounts.all);
    rule.varAccounts = listOf(values.accounts.entries);
    rule.intWordsNot = flag(values.words.negated);
    rule.intWordsAll = flag(values.words.all);
    rule.intAsCommand = flag(values.asCommand);
    rule.strWords = listOf(values.words.entries);
    rule.strDateTime = values.dateTime;
    rule.strDistribution = listOf(values.distribution);
    rule.strReplyText = values.replyText;
    rule.strReplyAccount = values.replyAccount;
    rule.strAlertText = values.alertText;
    rule.strAlertAccount = values.alertAccount;
    rule.strAlertRecipients = listOf(values.alertRecipients);
    rule.varDelete = values.deleteIt;
    rule.strIgnoreFurtherRules = values.ignoreFurtherRules;
    return rule;
}

/// Where the component's own code ends.
std::optional<EarlyEnd> endOf(const fuzz::StoredRule &row) {
    RuleState rule;
    try {
        readQueryParam(row.queryParam, rule);
        readActionParam(row.actionParam, rule);
    } catch (const UnreadValue &error) {
        const auto tag = error.tag().opening;
        return EarlyEnd{error.number(), std::u16string(tag.substr(1, tag.size() - 2))};
    }
    return std::nullopt;
}

class HostRule : public testing::Test {
protected:
    /// Reads and writes the row through the interface and as the component does.
    void expectSame(const fuzz::StoredRule &row) {
        const RuleRead read = strings_.read(row.queryParam, row.actionParam);
        const RuleState expected = fuzz::loaded(row);
        ASSERT_NO_THROW(fuzz::requireSameRule(stateOf(read.values), expected, "read"));
        EXPECT_EQ(read.end, endOf(row));
        const fuzz::StoredRule stored = fuzz::stored(expected);
        EXPECT_EQ(strings_.write(read.values),
                  (RuleWritten{std::u16string(stored.queryParam), stored.actionParam}));
        endedEarly_ += read.end ? 1 : 0;
    }

    LoadedComponent component_;
    RuleStrings strings_{component_.object()};
    std::mt19937 random_{11};
    int endedEarly_ = 0;
};

TEST_F(HostRule, WithAnyStringsReadsAndWritesAsTheComponentDoes) {
    constexpr std::array<std::u16string_view, 30> pieces{u"<ALLMESSAGES>",
                                                         u"<IGNOREIFSERVICE>",
                                                         u"</IGNOREIFSERVICE>",
                                                         u"<PEOPLE>",
                                                         u"</PEOPLE>",
                                                         u"<ACCOUNT>",
                                                         u"</ACCOUNT>",
                                                         u"<WORD>",
                                                         u"</WORD>",
                                                         u"<DATETIME>",
                                                         u"</DATETIME>",
                                                         u"<DIST>",
                                                         u"</DIST>",
                                                         u"<REPLY>",
                                                         u"</REPLY>",
                                                         u"<ALERT>",
                                                         u"</ALERT>",
                                                         u"<DELETE>",
                                                         u"</DELETE>",
                                                         u"<IGNOREFURTHERRULES>",
                                                         u"</IGNOREFURTHERRULES>",
                                                         u"<NOT>",
                                                         u"<CON>",
                                                         u"<ALL>",
                                                         u"<ANY>",
                                                         u"<ASCOMMAND>",
                                                         u";",
                                                         u" ",
                                                         u"YES",
                                                         u"\u00E9\xD83D"};
    const auto anyText = [&] {
        std::u16string text;
        for (auto left = random_() % 25; left > 0; --left) {
            // An opening tag is often followed by its closing tag.
            const std::size_t at = random_() % pieces.size();
            text += pieces[at];
            if (at >= 1 && at <= 19 && at % 2 == 1 && random_() % 4 > 0) {
                text += pieces[21 + random_() % 9];
                text += pieces[21 + random_() % 9];
                text += pieces[at + 1];
            }
        }
        return text;
    };
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        expectSame({anyText(), anyText()});
    }
    EXPECT_GT(endedEarly_, 100);
    EXPECT_LT(endedEarly_, 2900);
}

TEST_F(HostRule, OfTheEditorIsReadAndWrittenAsTheComponentDoes) {
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        std::vector<std::uint8_t> bytes(200);
        std::ranges::generate(bytes, [&] { return static_cast<std::uint8_t>(random_()); });
        fuzz::Input input(bytes.data(), bytes.size());
        expectSame(fuzz::stored(fuzz::editedRule(input)));
    }
}

TEST_F(HostRule, HasTheValuesOfEveryField) {
    const RuleWritten strings{
        u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><PEOPLE><NOT><ALL>981;982</PEOPLE>"
        u"<ACCOUNT><CON><ALL>3</ACCOUNT><WORD><NOT><ANY><ASCOMMAND>STOP</WORD>"
        u"<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>",
        u"<DIST>5;6</DIST><REPLY>Received;7</REPLY><ALERT>New;8;983</ALERT>"
        u"<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>"};
    RuleValues values;
    values.ignoreIfService = u"YES";
    values.people = {true, true, {u"981", u"982"}};
    values.accounts = {false, true, {u"3"}};
    values.words = {true, false, {u"STOP"}};
    values.asCommand = true;
    values.dateTime = u"20240301 09:00:00,20240331 18:30:00";
    values.distribution = {u"5", u"6"};
    values.replyText = u"Received";
    values.replyAccount = u"7";
    values.alertText = u"New";
    values.alertAccount = u"8";
    values.alertRecipients = {u"983"};
    values.deleteIt = u"YES";
    values.ignoreFurtherRules = u"YES";
    const RuleRead read = strings_.read(strings.queryParam, strings.actionParam);
    EXPECT_EQ(read.values, values);
    EXPECT_EQ(read.end, std::nullopt);
    EXPECT_EQ(strings_.write(values), strings);
}

TEST_F(HostRule, OfAllMessagesIsWrittenWithoutOtherConditions) {
    RuleValues values;
    values.allMessages = true;
    values.people.entries = {u"1"};
    EXPECT_EQ(strings_.write(values).queryParam, u"<ALLMESSAGES>");
    EXPECT_TRUE(strings_.read(u"<ALLMESSAGES>", u"").values.allMessages);
}

TEST_F(HostRule, SaysWhereItsReadingEnded) {
    const RuleRead read = strings_.read(u"<PEOPLE><NOT><ALL>1</PEOPLE><DATETIME>", u"<DELETE>");
    EXPECT_EQ(read.values.people, (RuleList{true, true, {u"1"}}));
    EXPECT_EQ(read.end, (EarlyEnd{5, u"DATETIME"}));
}

TEST_F(HostRule, IsRefusedWithTheEditorsWords) {
    RuleValues values;
    values.allMessages = true;
    EXPECT_EQ(strings_.refusal(u"A", false, values), u"Please select some actions for this Rule.");
    values.deleteIt = u"YES";
    EXPECT_EQ(strings_.refusal(u"A", false, values), std::nullopt);
    EXPECT_EQ(strings_.refusal(u"A", true, values),
              u"A Rule already exists in this name, please select a different name.");
}

TEST_F(HostRule, HasTheKeysOfItsName) {
    const NameKeys keys = strings_.keysOf(u" Night ");
    EXPECT_EQ(keys.typed, u"night");
    EXPECT_EQ(keys.stored, u" night ");
    EXPECT_EQ(strings_.keysOf(u"don't").typed, std::nullopt);
}

/// A component that lacks IRuleStrings, or whose calls fail.
class OtherComponent final : public ComObject<IRuleStrings> {
public:
    HRESULT Read(BSTR, BSTR, IRuleFieldSink *) noexcept override { return result; }
    HRESULT Write(const RuleField *, ULONG, BSTR *, BSTR *) noexcept override { return result; }
    HRESULT Check(BSTR, VARIANT_BOOL, const RuleField *, ULONG, BSTR *) noexcept override {
        return result;
    }
    HRESULT GetNameKeys(BSTR, BSTR *, BSTR *) noexcept override { return result; }
    HRESULT result = E_FAIL;
};

TEST(HostRuleOfAnotherComponent, FailsWithItsResult) {
    const auto component = makeComObject<OtherComponent>();
    const RuleStrings strings(*component);
    const std::u16string failed = u"The rule component failed (0x80004005).";
    test::expectError(error_number::internalError, failed, [&] { return strings.read(u"", u""); });
    test::expectError(error_number::internalError, failed, [&] { return strings.write({}); });
    test::expectError(error_number::internalError, failed,
                      [&] { return strings.refusal(u"", false, {}); });
    test::expectError(error_number::internalError, failed, [&] { return strings.keysOf(u""); });
    component->result = E_OUTOFMEMORY;
    EXPECT_EQ(test::errorNumber([&] { return strings.read(u"", u""); }), error_number::outOfMemory);
}

TEST(HostRuleOfAnotherComponent, NeedsTheInterface) {
    const auto old = makeComObject<test::UselessUtility>();
    test::expectError(error_number::internalError,
                      u"The rule component is too old: it does not give the fields of rules.",
                      [&] { return RuleStrings(*old); });
}

} // namespace
} // namespace kvex::host

// The interface IRuleStrings of the loaded component.
#include "platform/Text.h"
#include "tests/support/LoadedComponent.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace kvex::test {
namespace {

using Text = std::u16string;
using Pair = std::pair<std::string, std::string>;
using Pairs = std::vector<Pair>;

class Sink final : public ComObject<IRuleFieldSink> {
public:
    HRESULT Field(BSTR name, BSTR value) noexcept override {
        fields.emplace_back(toUtf8(viewOf(name)), toUtf8(viewOf(value)));
        return fields.size() == failsAt ? E_ACCESSDENIED : S_OK;
    }
    HRESULT EndedEarly(LONG number, BSTR tag) noexcept override {
        ends.emplace_back(number, viewOf(tag));
        return endResult;
    }
    Pairs fields;
    std::vector<std::pair<LONG, Text>> ends;
    std::size_t failsAt = 0;
    HRESULT endResult = S_OK;
};

class RuleStrings : public testing::Test {
protected:
    HRESULT read(const Text &queryParam, const Text &actionParam) {
        return strings_->Read(Bstr(queryParam).get(), Bstr(actionParam).get(), sink_.get());
    }
    /// The fields that differ from those of a new rule.
    Pairs readFields(const Text &queryParam, const Text &actionParam) {
        sink_ = makeComObject<Sink>();
        read(queryParam, actionParam);
        Pairs fields = std::move(sink_->fields);
        std::erase_if(
            fields, [](const Pair &field) { return field.second == "NO" || field.second.empty(); });
        return fields;
    }

    using Fields = std::vector<std::pair<Text, Text>>;
    HRESULT withFields(const Fields &fields, const auto &call) {
        std::vector<Bstr> texts;
        std::vector<RuleField> arguments;
        for (const auto &[name, value] : fields) {
            BSTR const nameText = texts.emplace_back(name).get();
            arguments.push_back({nameText, texts.emplace_back(value).get()});
        }
        return call(arguments.data(), static_cast<ULONG>(arguments.size()));
    }
    HRESULT write(const Fields &fields) {
        return withFields(fields, [&](const RuleField *data, ULONG count) {
            return strings_->Write(data, count, query_.put(), action_.put());
        });
    }
    HRESULT check(const Text &name, bool isTaken, const Fields &fields) {
        return withFields(fields, [&](const RuleField *data, ULONG count) {
            return strings_->Check(Bstr(name).get(), isTaken ? VARIANT_TRUE : VARIANT_FALSE, data,
                                   count, message_.put());
        });
    }
    void expectRefused(const Text &message, const Text &name, bool isTaken, const Fields &fields) {
        EXPECT_EQ(check(name, isTaken, fields), S_FALSE);
        EXPECT_EQ(message_.text(), message);
    }

    LoadedComponent component_;
    ComPointer<IRuleStrings> strings_ = component_.strings();
    ComPointer<Sink> sink_ = makeComObject<Sink>();
    Bstr query_;
    Bstr action_;
    Bstr message_;
};

const Text wholeQuery =
    u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><PEOPLE><NOT><ALL>981;982</PEOPLE>"
    u"<ACCOUNT><CON><ALL>3;4</ACCOUNT><WORD><NOT><ANY><ASCOMMAND>STOP;HALT</WORD>"
    u"<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>";
const Text wholeAction = u"<DIST>5;6</DIST><REPLY>Received;7</REPLY><ALERT>New;8;983;984</ALERT>"
                         u"<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>";
const Pairs wholeFields{
    {"allMessages", "NO"},       {"ignoreIfService", "YES"},
    {"people.not", "YES"},       {"people.all", "YES"},
    {"people.entries", "981"},   {"people.entries", "982"},
    {"accounts.not", "NO"},      {"accounts.all", "YES"},
    {"accounts.entries", "3"},   {"accounts.entries", "4"},
    {"words.not", "YES"},        {"words.all", "NO"},
    {"words.asCommand", "YES"},  {"words.entries", "STOP"},
    {"words.entries", "HALT"},   {"dateTime", "20240301 09:00:00,20240331 18:30:00"},
    {"distribution", "5"},       {"distribution", "6"},
    {"reply.text", "Received"},  {"reply.account", "7"},
    {"alert.text", "New"},       {"alert.account", "8"},
    {"alert.recipients", "983"}, {"alert.recipients", "984"},
    {"delete", "YES"},           {"ignoreFurtherRules", "YES"}};

TEST_F(RuleStrings, ReadPassesEveryFieldInOrder) {
    EXPECT_EQ(read(wholeQuery, wholeAction), S_OK);
    EXPECT_EQ(sink_->fields, wholeFields);
    EXPECT_TRUE(sink_->ends.empty());
}

TEST_F(RuleStrings, ReadOfNothingGivesANewRule) {
    EXPECT_EQ(strings_->Read(nullptr, nullptr, sink_.get()), S_OK);
    EXPECT_EQ(sink_->fields, (Pairs{{"allMessages", "NO"},
                                    {"ignoreIfService", "NO"},
                                    {"people.not", "NO"},
                                    {"people.all", "NO"},
                                    {"accounts.not", "NO"},
                                    {"accounts.all", "NO"},
                                    {"words.not", "NO"},
                                    {"words.all", "NO"},
                                    {"words.asCommand", "NO"},
                                    {"dateTime", ""},
                                    {"reply.text", ""},
                                    {"reply.account", ""},
                                    {"alert.text", ""},
                                    {"alert.account", ""},
                                    {"delete", "NO"},
                                    {"ignoreFurtherRules", "NO"}}));
}

TEST_F(RuleStrings, ReadKeepsEmptyEntriesAndForeignTexts) {
    EXPECT_EQ(readFields(u"<IGNOREIFSERVICE>maybe</IGNOREIFSERVICE>"
                         u"<PEOPLE><CON><ANY>;a;;b;;</PEOPLE>",
                         u"<DELETE>yes</DELETE>"),
              (Pairs{{"ignoreIfService", "maybe"},
                     {"people.entries", "a"},
                     {"people.entries", "b"},
                     {"delete", "yes"}}));
    ASSERT_EQ(read(u"<PEOPLE><CON><ANY>;a;;b;;</PEOPLE>", u""), S_OK);
    EXPECT_EQ(std::ranges::count(sink_->fields, "people.entries", &Pair::first), 5);
}

TEST_F(RuleStrings, ReadOfAllMessagesReadsNoOtherCondition) {
    EXPECT_EQ(readFields(u"<PEOPLE><NOT><ALL>1</PEOPLE><ALLMESSAGES>", u""),
              (Pairs{{"allMessages", "YES"}}));
}

TEST_F(RuleStrings, ReadSaysWhichTagIsNotClosedAndKeepsWhatCameBefore) {
    EXPECT_EQ(read(u"<PEOPLE><NOT><ANY>1</PEOPLE><WORD><NOT><ALL>a", u"<DELETE>YES</DELETE>"),
              S_FALSE);
    EXPECT_EQ(sink_->ends, (std::vector<std::pair<LONG, Text>>{{5, u"WORD"}}));
    EXPECT_EQ(readFields(u"<PEOPLE><NOT><ANY>1</PEOPLE><WORD><NOT><ALL>a", u"<DELETE>YES</DELETE>"),
              (Pairs{{"people.not", "YES"}, {"people.entries", "1"}}));
}

TEST_F(RuleStrings, ReadSaysWhichTagOfTheActionsStandsTooFarBack) {
    const Text far(32767, u'x');
    EXPECT_EQ(read(u"<ALLMESSAGES>", far + u"<REPLY>a;1</REPLY>"), S_FALSE);
    EXPECT_EQ(sink_->ends, (std::vector<std::pair<LONG, Text>>{{6, u"REPLY"}}));
    EXPECT_EQ(sink_->fields.front(), (Pair{"allMessages", "YES"}));
}

TEST_F(RuleStrings, ReadPassesOnTheFailureOfTheSinkAndStops) {
    EXPECT_EQ(strings_->Read(nullptr, nullptr, nullptr), E_POINTER);
    sink_->failsAt = 3;
    EXPECT_EQ(read(u"<WORD>", u""), E_ACCESSDENIED);
    EXPECT_EQ(sink_->fields.size(), 3);
    EXPECT_TRUE(sink_->ends.empty());
    sink_ = makeComObject<Sink>();
    sink_->endResult = E_OUTOFMEMORY;
    EXPECT_EQ(read(u"<WORD>", u""), E_OUTOFMEMORY);
}

TEST_F(RuleStrings, WriteMakesTheStringsThatWereRead) {
    Fields fields;
    for (const auto &[name, value] : wholeFields) {
        fields.emplace_back(fromUtf8(name), fromUtf8(value));
    }
    EXPECT_EQ(write(fields), S_OK);
    EXPECT_EQ(query_.text(), wholeQuery);
    EXPECT_EQ(action_.text(), wholeAction);
}

TEST_F(RuleStrings, WriteWithoutFieldsMakesANewRule) {
    EXPECT_EQ(strings_->Write(nullptr, 0, query_.put(), action_.put()), S_OK);
    EXPECT_EQ(query_.text(), u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>");
    EXPECT_EQ(action_.text(), u"<DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
}

TEST_F(RuleStrings, WriteTakesFieldsInAnyOrderAndTheLastOfASingleOne) {
    EXPECT_EQ(write({{u"words.entries", u""},
                     {u"delete", u"NO"},
                     {u"words.entries", u"b"},
                     {u"delete", u"YES"},
                     {u"words.not", u"yes"},
                     {u"words.all", u"YES"}}),
              S_OK);
    EXPECT_EQ(query_.text(), u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ALL>;b</WORD>");
    EXPECT_EQ(action_.text(), u"<DELETE>YES</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>");
}

TEST_F(RuleStrings, WriteRefusesUnknownNamesAndNull) {
    query_ = Bstr(u"old");
    EXPECT_EQ(write({{u"People.not", u"YES"}}), E_INVALIDARG);
    EXPECT_EQ(query_.get(), nullptr);
    EXPECT_EQ(action_.get(), nullptr);
    const RuleField nameless{nullptr, nullptr};
    EXPECT_EQ(strings_->Write(&nameless, 1, query_.put(), action_.put()), E_INVALIDARG);
    EXPECT_EQ(strings_->Write(nullptr, 1, query_.put(), action_.put()), E_POINTER);
    EXPECT_EQ(strings_->Write(nullptr, 0, nullptr, action_.put()), E_POINTER);
    EXPECT_EQ(strings_->Write(nullptr, 0, query_.put(), nullptr), E_POINTER);
}

TEST_F(RuleStrings, CheckAcceptsWhatTheEditorStores) {
    EXPECT_EQ(check(u" A ", false, {{u"people.entries", u"1"}, {u"delete", u"YES"}}), S_OK);
    EXPECT_EQ(message_.get(), nullptr);
    EXPECT_EQ(check(u"A", false, {{u"allMessages", u"YES"}, {u"reply.text", u"a"}}), S_OK);
}

TEST_F(RuleStrings, CheckSaysTheEditorsFirstMessage) {
    const Fields all{{u"allMessages", u"YES"}, {u"delete", u"YES"}};
    expectRefused(u"Please select some conditions for this Rule.", u"", true, {});
    expectRefused(u"Please select some actions for this Rule.", u"", true,
                  {{u"ignoreIfService", u"YES"}});
    expectRefused(u"Type a name for this Rule.", u"  ", true, all);
    expectRefused(u"Insufficient information. Please configure the Alerts for this rule.", u"A",
                  true, {{u"allMessages", u"YES"}, {u"alert.recipients", u"1"}});
    expectRefused(u"A Rule already exists in this name, please select a different name.", u"A",
                  true, all);
}

TEST_F(RuleStrings, CheckKnowsTheLongestStrings) {
    const Text tags = u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ANY></WORD>";
    const Fields stop{{u"delete", u"YES"}, {u"words.entries", Text(5000 - tags.size(), u'w')}};
    EXPECT_EQ(check(u"A", false, stop), S_OK);
    Fields longer = stop;
    longer.back().second += u'w';
    expectRefused(u"Length of Condition parameter cannot exceed 5000 characters.", u"A", false,
                  longer);
    const Text actionTags =
        u"<REPLY>;</REPLY><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>";
    Fields reply{{u"allMessages", u"YES"}, {u"reply.text", Text(2500 - actionTags.size(), u'r')}};
    EXPECT_EQ(check(u"A", false, reply), S_OK);
    reply.back().second += u'r';
    expectRefused(u"Length of Action parameter cannot exceed 2500 characters.", u"A", false, reply);
}

TEST_F(RuleStrings, CheckRefusesUnknownNamesAndNull) {
    EXPECT_EQ(check(u"A", false, {{u"people", u"1"}}), E_INVALIDARG);
    EXPECT_EQ(strings_->Check(nullptr, VARIANT_FALSE, nullptr, 1, message_.put()), E_POINTER);
    EXPECT_EQ(strings_->Check(nullptr, VARIANT_FALSE, nullptr, 0, nullptr), E_POINTER);
}

TEST_F(RuleStrings, NameKeysIgnoreCaseAndTheBlanksAroundATypedName) {
    Bstr typed;
    Bstr stored;
    EXPECT_EQ(strings_->GetNameKeys(Bstr(u" Boss SMS ").get(), typed.put(), stored.put()), S_OK);
    EXPECT_EQ(typed.text(), u"boss sms");
    EXPECT_EQ(stored.text(), u" boss sms ");
    EXPECT_EQ(strings_->GetNameKeys(Bstr(u"Boss's").get(), typed.put(), stored.put()), S_FALSE);
    EXPECT_EQ(typed.get(), nullptr);
    EXPECT_EQ(stored.text(), u"boss's");
    EXPECT_EQ(strings_->GetNameKeys(nullptr, nullptr, stored.put()), E_POINTER);
    EXPECT_EQ(strings_->GetNameKeys(nullptr, typed.put(), nullptr), E_POINTER);
}

TEST_F(RuleStrings, AreAnotherInterfaceOfTheSameObject) {
    ASSERT_TRUE(strings_);
    EXPECT_EQ(strings_.as<IUnknown>().get(),
              ComPointer<IRuleUI>(&component_.object()).as<IUnknown>().get());
}

} // namespace
} // namespace kvex::test

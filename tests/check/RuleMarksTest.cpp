// The marks of rules, and which rules are read for them.
#include "host/check/RuleMarks.h"

#include "adapters/classserver/server/Guard.h"
#include "platform/Text.h"
#include "tests/check/CheckFixture.h"

namespace kvex::host {
namespace {

/// What was read and written, by the ActionParam.
struct Calls {
    std::vector<std::u16string> read;
    std::vector<std::u16string> written;
};

/// The component's strings, which note each call.
class WatchedStrings final : public ComObject<IRuleStrings> {
public:
    WatchedStrings(ComPointer<IRuleStrings> strings, Calls &calls)
        : strings_(std::move(strings)), calls_(calls) {}

    HRESULT Read(BSTR queryParam, BSTR actionParam, IRuleFieldSink *sink) noexcept final {
        return guarded([&] {
            calls_.read.emplace_back(viewOf(actionParam));
            return strings_->Read(queryParam, actionParam, sink);
        });
    }
    HRESULT Write(const RuleField *fields, ULONG count, BSTR *queryParam,
                  BSTR *actionParam) noexcept final {
        return guarded([&] {
            const HRESULT result = strings_->Write(fields, count, queryParam, actionParam);
            calls_.written.emplace_back(viewOf(*actionParam));
            return result;
        });
    }
    HRESULT Check(BSTR, VARIANT_BOOL, const RuleField *, ULONG, BSTR *) noexcept final {
        return E_FAIL;
    }
    HRESULT GetNameKeys(BSTR, BSTR *, BSTR *) noexcept final { return E_FAIL; }

private:
    ~WatchedStrings() final = default;

    ComPointer<IRuleStrings> strings_;
    Calls &calls_;
};

const std::u16string stop = u"<DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>";
const std::u16string erase = u"<DELETE>YES</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>";
const std::u16string pass = u"<DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>";
const std::u16string damaged = u"<DIST>YES";
const std::u16string all = u"<ALLMESSAGES>";
const std::u16string a = u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ANY>a</WORD>";

class Marks : public testing::Test {
protected:
    /// Adds an enabled rule behind the others. Its priority is its number.
    StoredRule &add(const std::u16string &queryParam, const std::u16string &actionParam) {
        const auto number = static_cast<std::int64_t>(rules.size() + 1);
        return rules.emplace_back(
            StoredRule{toText(number), u"", true, toText(number), queryParam, actionParam});
    }
    /// A character for each rule: "s" stops, "?" is unknown, "-" is neither. "S", "!" and "_" are
    /// the same for a rule that is never reached.
    std::string marks(StopsOf stopsOf = StopsOf::allRules) {
        calls = {};
        std::string text;
        for (const RuleMarks &mark : marksOf(rules, &strings, stopsOf)) {
            const bool isNever = mark.isNeverReached;
            text += !mark.stops   ? (isNever ? '!' : '?')
                    : *mark.stops ? (isNever ? 'S' : 's')
                                  : (isNever ? '_' : '-');
        }
        return text;
    }

    std::vector<StoredRule> rules;
    Calls calls;
    test::LoadedComponent component;
    RuleStrings strings{*makeComObject<WatchedStrings>(component.strings(), calls)};
};

TEST_F(Marks, OfRulesOfWhichNoneStopsOrDeletesNeedNoStrings) {
    add(a, pass);
    add(all, u"<REPLY>yes</REPLY>");
    EXPECT_FALSE(marksNeedStrings(rules));
    EXPECT_EQ(marks(), "--");
    EXPECT_TRUE(calls.read.empty());
    add(a, u"<REPLY>YES</REPLY>");
    EXPECT_TRUE(marksNeedStrings(rules));
    EXPECT_EQ(marks(), "---");
    EXPECT_EQ(calls.read, std::vector<std::u16string>{u"<REPLY>YES</REPLY>"});
}

TEST_F(Marks, AreFoundBehindARuleThatTakesMessages) {
    add(a, pass);
    add(a, stop);
    add(a, u"1" + pass);
    add(a, u"2" + pass).isActive = false;
    add(a, u"3" + stop).isActive = false;
    add(a, u"4" + erase);
    add(all, u"5" + pass);
    EXPECT_EQ(marks(), "-s_-s_-");
    EXPECT_EQ(calls.read, (std::vector{stop, u"1" + pass, u"3" + stop, u"4" + erase, u"5" + pass}));
    EXPECT_EQ(calls.written, std::vector{stop});
    EXPECT_EQ(marks(StopsOf::reachedRules), "-s_-s_-");
}

TEST_F(Marks, OfRulesBehindOneThatTakesAllMessagesNeedFewStrings) {
    add(a, stop);
    add(all, erase);
    add(a, u"1" + pass);
    add(a, u"2" + stop);
    add(a, damaged);
    add(a, u"3" + stop).isActive = false;
    EXPECT_EQ(marks(), "s-_S!s");
    EXPECT_EQ(calls.read, (std::vector{stop, erase, u"2" + stop, damaged, u"3" + stop}));
    EXPECT_EQ(calls.written, (std::vector{stop, erase}));
    EXPECT_EQ(marks(StopsOf::reachedRules), "s-!!!s");
    EXPECT_EQ(calls.read, (std::vector{stop, erase, u"3" + stop}));
}

TEST_F(Marks, SayNothingAboutRulesOfTheSamePriority) {
    add(all, stop);
    add(a, u"1" + pass).priority = u"1";
    add(a, u"2" + pass);
    EXPECT_EQ(marks(), "s-_");
    EXPECT_EQ(calls.read, (std::vector{stop, u"1" + pass}));
}

TEST_F(Marks, OfADamagedRuleAreUnknown) {
    add(a, stop);
    add(a, damaged);
    add(a, u"<DIST>x");
    EXPECT_EQ(marks(), "s?-");
}

TEST_F(Marks, WithoutAComponentAreUnknownForRulesWithTheWord) {
    add(a, stop);
    add(a, pass);
    add(all, erase);
    for (const StopsOf stopsOf : {StopsOf::allRules, StopsOf::reachedRules}) {
        const std::vector<RuleMarks> marks = marksOf(rules, nullptr, stopsOf);
        ASSERT_EQ(marks.size(), 3);
        EXPECT_EQ(marks[0].stops, std::nullopt);
        EXPECT_EQ(marks[1].stops, false);
        EXPECT_EQ(marks[2].stops, std::nullopt);
        EXPECT_FALSE(marks[1].isNeverReached);
    }
}

} // namespace
} // namespace kvex::host

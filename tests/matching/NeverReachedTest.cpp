// What a check proves about rules that never run, compared with what a play does.
#include "host/check/Rulebook.h"
#include "tests/matching/MatchingFixture.h"

#include <algorithm>
#include <random>

namespace kvex::test {
namespace {

using host::Entries;

/// Rules and messages of few values. So an earlier rule often takes all messages of a later one.
class Maker {
public:
    explicit Maker(unsigned seed) : random_(seed) {}

    std::u16string conditions() {
        if (below(12) == 0) {
            return u"<ALLMESSAGES>";
        }
        std::u16string conditions =
            u"<IGNOREIFSERVICE>" + one({u"NO", u"NO", u"YES"}) + u"</IGNOREIFSERVICE>";
        conditions += list(u"PEOPLE", {u"1", u"+1", u"2", u"2 ", u"", u"A", u"a"}, u"");
        conditions += list(u"ACCOUNT", {u"1", u"01", u"2", u"x"}, u"");
        conditions +=
            list(u"WORD", {u"a", u"A", u"ab", u" b", u"", u"abc"}, one({u"", u"", u"<ASCOMMAND>"}));
        if (below(4) == 0) {
            conditions += u"<DATETIME>" + moment() + u"," + moment() + u"</DATETIME>";
        }
        return conditions;
    }
    std::u16string actions() {
        return u"<DELETE>" + one({u"NO", u"YES"}) + u"</DELETE><IGNOREFURTHERRULES>" +
               one({u"NO", u"YES", u"YES"}) + u"</IGNOREFURTHERRULES>";
    }
    Message message() {
        return {one({u"1", u"2", u"+2", u"a", u""}), static_cast<std::int32_t>(below(3)),
                one({u"", u"a", u"b", u"ab", u"xA", u"abc", u"b c"}), moment(), below(3) == 0};
    }

private:
    std::u16string list(const std::u16string &tag, const Entries &choices,
                        const std::u16string &more) {
        if (below(2) == 0) {
            return {};
        }
        std::u16string list = u"<" + tag + u">" + one({u"<CON>", u"<CON>", u"<NOT>"}) +
                              one({u"<ANY>", u"<ALL>"}) + more;
        for (std::size_t left = below(4); left > 0; --left) {
            list += one(choices) + (left > 1 ? u";" : u"");
        }
        return list + u"</" + tag + u">";
    }
    std::u16string moment() {
        return one({u"20240301 ", u"20240302 ", u"20240303 "}) + one({u"00:00:00", u"12:00:00"});
    }
    std::size_t below(std::size_t count) { return random_() % count; }
    std::u16string one(const Entries &choices) { return choices[below(choices.size())]; }

    std::mt19937 random_;
};

class NeverReached : public MatchingTest {};

TEST_F(NeverReached, RulesOfACheckGetNoMessageInAPlay) {
    std::size_t proved = 0;
    std::size_t hits = 0;
    for (unsigned seed = 0; seed < 200; ++seed) {
        Maker maker(seed);
        std::vector<PlayedRule> rules;
        host::StoredRows rows;
        for (int id = 1; id <= 12; ++id) {
            rules.push_back(
                rule(maker.conditions(), maker.actions(), toText(static_cast<std::int64_t>(id))));
            rows.rules.push_back(rules.back().row);
        }
        const host::Rulebook book(rows, strings(), message().moment);
        host::Matcher matcher(std::move(rules));
        for (int left = 0; left < 60; ++left) {
            for (const std::size_t place : matcher.play(maker.message())) {
                const auto taker = book.takerOf(book.rules()[place]);
                ASSERT_FALSE(taker) << "seed " << seed << ": rule " << place + 1
                                    << " applies after rule " << *taker + 1;
                ++hits;
            }
        }
        proved += static_cast<std::size_t>(
            std::ranges::count_if(book.rules(), [&](const host::CheckedRule &checked) {
                return book.takerOf(checked).has_value();
            }));
    }
    EXPECT_GT(proved, 200);
    EXPECT_GT(hits, 2000);
}

} // namespace
} // namespace kvex::test

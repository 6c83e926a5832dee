// Finding a record by a text while records change in every way.
#include "platform/Unicode.h"
#include "tests/recordset/RecordsetConformance.h"

#include <optional>
#include <random>

namespace kvex::test {
namespace {

using Ids = std::vector<std::int32_t>;

/// The records that a search stops on, one after the other.
Ids found(Recordset &rules, std::u16string_view name) {
    Ids ids;
    const std::u16string criterion = u"Name = '" + std::u16string(name) + u"'";
    rules.moveFirst();
    for (rules.find(criterion); !rules.eof(); rules.find(criterion, 1)) {
        ids.push_back(rules.field(u"ID").int32());
    }
    return ids;
}

void rename(Recordset &rules, std::int32_t id, const Value &name) {
    rules.moveFirst();
    rules.find(u"ID = " + toText(std::int64_t{id}));
    rules.setField(u"Name", name);
}

struct Named {
    std::int32_t id;
    /// Nothing for Null.
    std::optional<std::u16string> name;
};

Value valueOf(const std::optional<std::u16string> &name) {
    return name ? Value(*name) : Value(Null{});
}

Ids idsOf(const std::vector<Named> &records, std::u16string_view name) {
    Ids ids;
    for (const Named &record : records) {
        if (record.name && foldCase(*record.name) == foldCase(name)) {
            ids.push_back(record.id);
        }
    }
    return ids;
}

} // namespace

TEST_P(RecordsetConformance, FindFindsAWrittenTextAndNoLongerTheOldOne) {
    insertRule(1, u"one");
    insertRule(2, u"two");
    const auto rules = openRules();
    EXPECT_EQ(found(*rules, u"two"), Ids{2});
    rename(*rules, 2, u"Another");
    rules->update();
    EXPECT_EQ(found(*rules, u"ANOTHER"), Ids{2});
    EXPECT_EQ(found(*rules, u"two"), Ids{});
    rename(*rules, 2, u"ANOTHER");
    rules->update();
    EXPECT_EQ(found(*rules, u"another"), Ids{2});
}

TEST_P(RecordsetConformance, FindPassesATextThatWaitsForItsUpdate) {
    insertRule(1, u"one");
    const auto rules = openRules();
    rename(*rules, 1, u"new");
    EXPECT_EQ(found(*rules, u"new"), Ids{});
    EXPECT_EQ(found(*rules, u"one"), Ids{1});
    rules->addNew();
    rules->setField(u"Name", u"new");
    EXPECT_EQ(found(*rules, u"new"), Ids{});
}

TEST_P(RecordsetConformance, FindFindsTheTextThatWasReadAgain) {
    insertRule(1, u"one");
    const auto rules = openRules();
    EXPECT_EQ(found(*rules, u"one"), Ids{1});
    database().run(u"UPDATE SMS_RULES SET Name = 'theirs'");
    EXPECT_EQ(found(*rules, u"one"), Ids{1});
    rules->moveFirst();
    rules->resyncCurrent();
    EXPECT_EQ(found(*rules, u"theirs"), Ids{1});
    EXPECT_EQ(found(*rules, u"one"), Ids{});
}

TEST_P(RecordsetConformance, FindDistinguishesLongTextsOfTheSameLength) {
    const std::u16string same(200, u'x');
    insertRule(1, same + u"a");
    insertRule(2, same + u"b");
    insertRule(3, u"c" + same);
    const auto rules = openRules();
    EXPECT_EQ(found(*rules, same + u"B"), Ids{2});
    EXPECT_EQ(found(*rules, u"C" + same), Ids{3});
    EXPECT_EQ(found(*rules, same + u"c"), Ids{});
}

TEST_P(RecordsetConformance, FindIgnoresTheCaseOfEveryCharacter) {
    // Characters whose other case is in ASCII, and characters of two units.
    insertRule(1, u"\u212Aio\u017Fk");
    insertRule(2, u"\U00010428");
    insertRule(3, u"\u03A3\u03B9\u03C3\u03C5\u03C6\u03BF\u03C2");
    insertRule(4, u"Stra\u00DFe");
    const auto rules = openRules();
    EXPECT_EQ(found(*rules, u"KIOSK"), Ids{1});
    EXPECT_EQ(found(*rules, u"kiosk"), Ids{1});
    EXPECT_EQ(found(*rules, u"\U00010400"), Ids{2});
    EXPECT_EQ(found(*rules, u"\u03C3\u0399\u03A3\u03A5\u03A6\u039F\u03A3"), Ids{3});
    EXPECT_EQ(found(*rules, u"STRA\u00DFE"), Ids{4});
    EXPECT_EQ(found(*rules, u"STRASSE"), Ids{});
}

TEST_P(RecordsetConformance, FindFollowsTheTextsThroughEveryChange) {
    const std::vector<std::optional<std::u16string>> names{std::nullopt,
                                                           u"",
                                                           u"a",
                                                           u"A",
                                                           u"Kiosk",
                                                           u"\u212AIO\u017FK",
                                                           u"\u00C4r",
                                                           u"\u00E4R",
                                                           u"name",
                                                           u"name ",
                                                           u"eman",
                                                           u"NAME",
                                                           std::u16string(70, u'x'),
                                                           std::u16string(70, u'y')};
    std::mt19937 numbers(7); // NOLINT(*-msc51-cpp): the same changes in every run
    const auto below = [&](std::size_t end) { return numbers() % end; };
    std::vector<Named> expected;
    std::u16string rows;
    for (std::int32_t id = 1; id <= 70; ++id) {
        expected.push_back({id, names[below(names.size())]});
        const auto &name = expected.back().name;
        rows.append(rows.empty() ? u"" : u", ").append(u"(" + toText(std::int64_t{id}) + u", ");
        rows.append(name ? u"'" + *name + u"')" : u"NULL)");
    }
    database().run(u"INSERT INTO SMS_RULES (ID, Name) VALUES " + rows);
    const auto rules = openRules();
    for (int change = 0; change < 100; ++change) {
        const auto &name = names[below(names.size())];
        const std::size_t at = below(expected.size());
        switch (below(4)) {
        case 0:
            rules->addNew();
            rules->setField(u"Name", valueOf(name));
            rules->update();
            expected.push_back({id(*rules), name});
            break;
        case 1:
            rename(*rules, expected[at].id, valueOf(name));
            rules->update();
            expected[at].name = name;
            break;
        case 2:
            rename(*rules, expected[at].id, valueOf(name));
            break;
        default:
            rules->moveFirst();
            rules->find(u"ID = " + toText(std::int64_t{expected[at].id}));
            rules->deleteCurrent();
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(at));
        }
        for (const auto &searched : names) {
            if (searched) {
                EXPECT_EQ(found(*rules, *searched), idsOf(expected, *searched));
            }
        }
    }
}

} // namespace kvex::test

// Tables that are newer than the program open for reading. The user learns it at once, and each
// change says why it is not stored.
#include "tests/editors/Editors.h"

namespace kvex::test {
namespace {

constexpr std::u16string_view why = u"The database's tables have version 99. This program knows "
                                    u"version 1, so it only reads them and stores no change.";

/// Gives the tables a newer version while the object lives.
class Newer {
public:
    explicit Newer(DatabaseFixture &database) : database_(database) {
        database_.run(u"INSERT INTO SMS_SCHEMA (VERSION) VALUES (99)");
    }
    ~Newer() { database_.run(u"DELETE FROM SMS_SCHEMA WHERE VERSION = 99"); }
    Newer(const Newer &) = delete;
    Newer &operator=(const Newer &) = delete;

private:
    DatabaseFixture &database_;
};

} // namespace

TEST_P(Editors, NewerTablesAreShownAndNoChangeOfThemIsStored) {
    addThree(5, 2);
    const Newer newer(database());
    mine.inRulesWindow([this](User &user) {
        mine.expectTold({openingFailed}, error_number::badArgument, why);
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        user.tickRow(u"lvwRules", 2);
        mine.expectLeftHandler(error_number::badArgument, why);
        confirmRemoval(mine, user, 1);
        mine.expectTold({removalFailed}, error_number::badArgument, why);
        mine.toolkit.whenShown(u"frmRuleEdit", [this](User &rule) {
            rename(rule, u"Mine");
            rule.click(u"cmdOK");
            mine.expectTold({saveFailed}, error_number::badArgument, why);
            EXPECT_EQ(typedName(rule), u"Mine");
            rule.click(u"cmdCancel");
        });
        user.clickRow(u"lvwRules", 3);
        user.click(u"cmdModify");
        user.click(u"cmdOK");
        mine.expectTold({orderFailed}, error_number::badArgument, why);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(ruleCount(), u"3");
    EXPECT_EQ(stored(u"ACTIVE", u"B"), u"1");
    EXPECT_EQ(priorities(), (Texts{u"5", u"7", u"9"}));
}

TEST_P(Editors, NewerTablesTakeNoNewRule) {
    const Newer newer(database());
    mine.inEditor(u"", [this](User &rule) {
        mine.expectTold({openingFailed}, error_number::badArgument, why);
        completeRule(rule);
        rule.click(u"cmdOK");
        mine.expectTold({saveFailed}, error_number::badArgument, why);
        rule.click(u"cmdCancel");
    });
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(Editors, TablesWithoutAVersionAreEditedAsBefore) {
    addRule(u"A");
    run(u"ALTER TABLE SMS_SCHEMA RENAME TO SMS_AWAY");
    mine.inRulesWindow([](User &user) {
        user.tickRow(u"lvwRules", 1);
        user.click(u"cmdCancel");
    });
    run(u"ALTER TABLE SMS_AWAY RENAME TO SMS_SCHEMA");
    EXPECT_EQ(stored(u"ACTIVE", u"A"), u"0");
}

} // namespace kvex::test

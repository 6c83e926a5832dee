// The rules can only be edited in a table with a primary key. The user learns it when the session
// opens, and not when nothing was stored.
#include "tests/editors/Editors.h"

namespace kvex::test {
namespace {

/// Puts another table or a view in the place of a table while the object lives.
class InPlaceOf {
public:
    InPlaceOf(DatabaseFixture &database, const std::u16string &table, const std::u16string &kind,
              const std::u16string &definition)
        : database_(database), table_(table), kind_(kind) {
        database_.run(u"ALTER TABLE " + table_ + u" RENAME TO SMS_AWAY");
        database_.run(u"CREATE " + kind_ + u" " + table_ + u" " + definition);
    }
    ~InPlaceOf() {
        database_.run(u"DROP " + kind_ + u" " + table_);
        database_.run(u"ALTER TABLE SMS_AWAY RENAME TO " + table_);
    }
    InPlaceOf(const InPlaceOf &) = delete;
    InPlaceOf &operator=(const InPlaceOf &) = delete;

private:
    DatabaseFixture &database_;
    std::u16string table_;
    std::u16string kind_;
};

/// PostgreSQL's driver takes an index with the name of a table for its key, whatever table has it.
/// This renames that index while the object lives.
class KeyIndexAway {
public:
    KeyIndexAway(DatabaseFixture &database, const DatabaseKind &kind)
        : database_(database), isPostgreSql_(kind.name == "PostgreSql") {
        rename(u"sms_rules_pkey", u"sms_away_pkey");
    }
    ~KeyIndexAway() { rename(u"sms_away_pkey", u"sms_rules_pkey"); }
    KeyIndexAway(const KeyIndexAway &) = delete;
    KeyIndexAway &operator=(const KeyIndexAway &) = delete;

private:
    void rename(const std::u16string &from, const std::u16string &to) {
        if (isPostgreSql_) {
            database_.run(u"ALTER INDEX " + from + u" RENAME TO " + to);
        }
    }

    DatabaseFixture &database_;
    bool isPostgreSql_;
};

} // namespace

TEST_P(Editors, RulesWithoutAPrimaryKeyAreNotOpenedAndTheUserIsToldWhy) {
    {
        const KeyIndexAway index(database(), GetParam());
        const InPlaceOf keyless(database(), u"SMS_RULES", u"TABLE",
                                u"(ID INTEGER, Name VARCHAR(255), QueryParam VARCHAR(255), "
                                u"ActionParam VARCHAR(255), PRIORITY INTEGER, ACTIVE INTEGER, "
                                u"DELETED INTEGER)");
        run(u"INSERT INTO SMS_RULES VALUES (1, 'A', '<ALLMESSAGES>', '', 1, 1, 0)");
        EXPECT_EQ(mine.showRules(), 0);
        mine.expectTold({openingFailed}, error_number::badArgument,
                        u" have no primary key, so they cannot be written. Make the column ID the "
                        u"primary key of this table, or name another database.");
    }
    EXPECT_EQ(mine.inRulesWindow([](User &user) { user.click(u"cmdCancel"); }), 1);
}

TEST_P(Editors, AViewOfTheRulesStoresATickOrIsNotOpened) {
    addRule(u"A");
    const KeyIndexAway index(database(), GetParam());
    const InPlaceOf view(database(), u"SMS_RULES", u"VIEW", u"AS SELECT * FROM SMS_AWAY");
    // Only SQLite says which table the columns of a view come from.
    if (GetParam().name.find("Sqlite") == std::string::npos) {
        EXPECT_EQ(mine.showRules(), 0);
        mine.expectTold({openingFailed}, error_number::badArgument, u" have no primary key");
        return;
    }
    mine.inRulesWindow([](User &user) {
        user.tickRow(u"lvwRules", 1);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(stored(u"ACTIVE", u"A"), u"0");
}

TEST_P(Editors, TablesThatAreOnlyReadNeedNoPrimaryKey) {
    addRule(u"A");
    const InPlaceOf keyless(database(), u"SMS_USERS", u"TABLE",
                            u"(ID INTEGER, NAME VARCHAR(255), DELETED INTEGER)");
    mine.inRulesWindow([](User &user) {
        user.tickRow(u"lvwRules", 1);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(stored(u"ACTIVE", u"A"), u"0");
}

} // namespace kvex::test

// A rule holds bytes that are no text, and the editor can only show them as other characters. It
// does not overwrite them unseen, and the user is told which value to mend.
#include "tests/databases/ServerFixture.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/editors/Editors.h"

#include <string>
#include <tuple>

namespace kvex::test {
namespace {

struct Bytes {
    std::string name;
    std::u16string written;
};

/// The rule "B" of three holds such bytes. Its priority is 20.
class UnkeptValue : public TwoEditors,
                    public testing::WithParamInterface<std::tuple<DatabaseKind, Bytes>> {
protected:
    UnkeptValue() : TwoEditors(std::get<DatabaseKind>(GetParam())) {
        addThree(10, 10);
        id = idOf(u"B");
    }

    void spoil(const std::u16string &column) {
        run(u"UPDATE SMS_RULES SET " + column + u" = " + std::get<Bytes>(GetParam()).written +
            u" WHERE PRIORITY = 20");
    }
    [[nodiscard]] std::u16string inB(const std::u16string &expression) {
        return database().valueOf(u"SELECT " + expression + u" FROM SMS_RULES WHERE ID = " + id);
    }
    void expectToldWhy(const std::u16string &sub, const std::u16string &what,
                       const std::u16string &column) {
        mine.expectTold({sub}, rowChangedByAnother,
                        u"The " + what + u" of record ID " + id +
                            u" was not stored. Its column \"" + column +
                            u"\" holds a value that cannot be read unchanged. Write this value "
                            u"again in the database, as text in UTF-8. Then open the rules again");
    }

    std::u16string id;
};

} // namespace

TEST_P(UnkeptValue, IsNeitherOverwrittenNorRemovedAndTheUserLearnsWhichItIs) {
    spoil(u"Name");
    mine.inRulesWindow([this](User &user) {
        confirmRemoval(mine, user, 2);
        expectToldWhy(removalFailed, u"removal", u"Name");
        mine.toolkit.whenShown(u"frmRuleEdit", [this](User &editor) {
            rename(editor, u"Mine");
            editor.click(u"cmdOK");
            expectToldWhy(saveFailed, u"change", u"Name");
            editor.click(u"cmdCancel");
        });
        user.click(u"cmdModify");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(inB(u"hex(Name)"), u"41FF42");
}

TEST_P(UnkeptValue, LeavesTheOtherColumnsOfItsRuleToTheUser) {
    spoil(u"QueryParam");
    mine.inRulesWindow([](User &user) {
        user.tickRow(u"lvwRules", 2);
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(inB(u"ACTIVE || ' ' || PRIORITY || ' ' || hex(QueryParam)"), u"0 2 41FF42");
}

TEST_P(UnkeptValue, IsToldAsAnothersChangeWhenAnotherHasChangedIt) {
    spoil(u"Name");
    mine.inRulesWindow([this](User &user) {
        run(u"UPDATE SMS_RULES SET Name = 'theirs' WHERE ID = " + id);
        confirmRemoval(mine, user, 2);
        mine.expectTold({removalFailed}, rowChangedByAnother,
                        u"Another user changed or removed it meanwhile.");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(inB(u"Name"), u"theirs");
}

INSTANTIATE_TEST_SUITE_P(Editors, UnkeptValue,
                         testing::Combine(testing::Values(sqliteFile(), odbcSqlite()),
                                          testing::Values(Bytes{"Text", u"CAST(X'41FF42' AS TEXT)"},
                                                          Bytes{"Blob", u"X'41FF42'"})),
                         [](const auto &instance) {
                             return std::get<DatabaseKind>(instance.param).name +
                                    std::get<Bytes>(instance.param).name;
                         });

} // namespace kvex::test

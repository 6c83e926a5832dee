// A program changes several rules while a user edits them.
#include "adapters/recordset/ClientConnection.h"
#include "host/rules/OpenRules.h"
#include "host/rules/RuleChanges.h"
#include "tests/editors/Editors.h"
#include "tests/support/RaisedError.h"

namespace kvex::test {
namespace {

using host::OpenRules;
using host::Place;

/// The connection of the program.
class ProgramConnection {
public:
    explicit ProgramConnection(DatabaseFixture &database) : connection_({database.provider()}) {
        static_cast<Connection &>(connection_).open(database.otherConnectionString());
    }
    Connection &operator*() { return connection_; }

private:
    recordset::ClientConnection connection_;
};

void moveToFront(OpenRules &rules, const std::u16string &id) {
    host::Rules wanted =
        host::moved(rules.rules(), id, {Place::Side::before, rules.rules().front().id});
    rules.store(wanted);
}

} // namespace

TEST_P(Editors, AnOrderAfterThatOfAProgramIsRefusedAndToldOnce) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        user.clickRow(u"lvwRules", 2);
        user.click(u"cmdMoveUp"); // B A C
        ProgramConnection program(database());
        OpenRules rules(*program);
        moveToFront(rules, idOf(u"C")); // C A B
        EXPECT_EQ(priorities(), (Texts{u"2", u"3", u"1"}));
        user.click(u"cmdOK");
        mine.expectTold({orderFailed}, rowChangedByAnother, u"Another user changed or removed it");
        EXPECT_EQ(priorities(), (Texts{u"2", u"3", u"1"}));
        user.click(u"cmdCancel");
    });
}

TEST_P(Editors, AProgramThatReadTheRulesBeforeAnEditorStoredThemChangesNothing) {
    addThree();
    ProgramConnection program(database());
    OpenRules rules(*program);
    mine.inRulesWindow([](User &user) {
        user.tickRow(u"lvwRules", 3);
        user.click(u"cmdCancel");
    });
    host::Rules wanted = host::switched(rules.rules(), {idOf(u"A"), idOf(u"B"), idOf(u"C")}, false);
    const auto error = raisedBy([&] {
        rules.store(wanted);
        return 0;
    });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), rowChangedByAnother);
    EXPECT_EQ(error->description().substr(error->description().size() - 21),
              u" Nothing was changed.");
    EXPECT_EQ(stored(u"ACTIVE", u"A"), u"1");
    EXPECT_EQ(stored(u"ACTIVE", u"B"), u"1");
    EXPECT_EQ(stored(u"ACTIVE", u"C"), u"0");
}

TEST_P(Editors, AProgramRemovesNoRuleThatAnEditorHasStoredMeanwhile) {
    addThree();
    ProgramConnection program(database());
    OpenRules rules(*program);
    mine.inEditor(idOf(u"B"), [](User &user) {
        rename(user, u"B2");
        user.click(u"cmdOK");
    });
    host::Rules wanted = host::without(rules.rules(), {idOf(u"A"), idOf(u"B2")});
    EXPECT_EQ(errorNumber([&] {
                  rules.store(wanted);
                  return 0;
              }),
              rowChangedByAnother);
    EXPECT_EQ(ruleCount(), u"3");
    EXPECT_EQ(stored(u"PRIORITY", u"C"), u"3");
}

} // namespace kvex::test

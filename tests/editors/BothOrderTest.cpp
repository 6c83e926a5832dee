// One user orders the rules while another one orders, adds or removes some.
#include "tests/editors/Editors.h"

namespace kvex::test {
namespace {

/// Moves the row up by this number of places.
void moveUp(User &user, int row, int places) {
    user.clickRow(u"lvwRules", row);
    for (; places > 0; --places) {
        user.click(u"cmdMoveUp");
    }
}

/// The text of the message that is shown.
std::u16string shownText(const Editor &editor) {
    return editor.utility.messages.empty() ? u"" : editor.utility.messages.back().text;
}

} // namespace

TEST_P(Editors, TheSecondOfTwoOrdersStopsWhereTheFirstHasChangedAPriority) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        moveUp(user, 3, 2); // C A B
        meanwhile([this] {
            theirs.inRulesWindow([](User &other) {
                moveUp(other, 2, 1); // B A C
                other.click(u"cmdOK");
                EXPECT_FALSE(other.isOpen());
            });
        });
        EXPECT_EQ(priorities(), (Texts{u"2", u"1", u"3"}));
        for (int attempt = 1; attempt <= 2; ++attempt) {
            user.click(u"cmdOK");
            // The second attempt finds C stored, and stores nothing itself.
            EXPECT_NE(shownText(mine).find(attempt == 1 ? u"The first rule of the list has its "
                                                          u"new number"
                                                        : u"The old order is stored"),
                      std::u16string::npos);
            mine.expectTold({orderFailed}, rowChangedByAnother,
                            u"The change of record ID " + idOf(u"A") + u" was not stored. ");
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"C", u"A", u"B"}));
            // The change before A is stored, and the other user's changes are intact.
            EXPECT_EQ(priorities(), (Texts{u"2", u"1", u"1"}));
        }
        user.click(u"cmdCancel");
    });
    mine.inRulesWindow([](User &user) { user.click(u"cmdOK"); });
    EXPECT_EQ(stored(u"PRIORITY", u"A"), u"3");
}

TEST_P(Editors, AUserWhoseOrderStopsLearnsWhichPartIsStored) {
    addThree(10, 10);
    mine.inRulesWindow([this](User &user) {
        run(u"UPDATE SMS_RULES SET PRIORITY = 5 WHERE Name = 'C'");
        user.click(u"cmdOK");
        mine.expectTold({orderFailed}, rowChangedByAnother,
                        u"The first 2 rules of the list have their new number; the others keep "
                        u"their old one.");
        EXPECT_EQ(priorities(), (Texts{u"1", u"2", u"5"}));
        user.click(u"cmdCancel");
    });
}

TEST_P(Editors, OrdersThatTouchDifferentRulesAreBothStored) {
    addThree();
    addRule(u"D", 4);
    mine.inRulesWindow([this](User &user) {
        moveUp(user, 2, 1); // B A C D
        meanwhile([this] {
            theirs.inRulesWindow([](User &other) {
                moveUp(other, 4, 1); // A B D C
                other.click(u"cmdOK");
            });
        });
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(priorities(), (Texts{u"2", u"1", u"4"}));
    EXPECT_EQ(stored(u"PRIORITY", u"D"), u"3");
}

TEST_P(Editors, MovingARemovedRuleGivesAMessageAndLeavingItInPlaceGivesNone) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        run(u"DELETE FROM SMS_RULES WHERE Name = 'C'");
        moveUp(user, 2, 1); // B A C
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(priorities(), (Texts{u"2", u"1", u"NONE"}));
    mine.inRulesWindow([this](User &user) {
        run(u"DELETE FROM SMS_RULES WHERE Name = 'A'");
        moveUp(user, 2, 1); // A B
        user.click(u"cmdOK");
        mine.expectTold({orderFailed}, rowChangedByAnother, u"Another user changed or removed it");
        EXPECT_TRUE(user.isOpen());
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(Editors, ARuleThatAnotherAddedStandsFirstAfterTheOrderIsStored) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        meanwhile([this] {
            theirs.inEditor(u"", [](User &other) {
                completeRule(other);
                rename(other, u"New");
                other.click(u"cmdOK");
            });
        });
        moveUp(user, 2, 1);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(priorities(), (Texts{u"2", u"1", u"3"}));
    mine.inRulesWindow([](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"New", u"B", u"A", u"C"}));
        user.click(u"cmdCancel");
    });
}

} // namespace kvex::test

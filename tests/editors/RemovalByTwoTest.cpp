// One user removes a rule that another one changes.
#include "tests/editors/Editors.h"
#include "tests/windows/EditorRows.h"

#include <algorithm>

namespace kvex::test {
namespace {

constexpr std::u16string_view changedByAnother = u"Another user changed or removed it meanwhile.";

} // namespace

TEST_P(Editors, AChangeOfARuleThatAnotherRemovedBringsNothingBack) {
    const std::u16string id = addRule(u"A");
    addRule(u"B", 1);
    mine.inEditor(id, [&](User &user) {
        meanwhile([&] {
            theirs.inRulesWindow([&](User &other) {
                confirmRemoval(theirs, other, 1);
                EXPECT_EQ(other.rows(u"lvwRules"), Texts{u"B"});
                other.click(u"cmdCancel");
            });
            theirs.utility.messages.clear();
        });
        rename(user, u"Mine");
        for (int attempt = 1; attempt <= 2; ++attempt) {
            user.click(u"cmdOK");
            mine.expectTold({saveFailed}, rowChangedByAnother, changedByAnother);
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(typedName(user), u"Mine");
            EXPECT_EQ(ruleCount(), u"1");
        }
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(stored(u"Name", u"B"), u"B");
}

TEST_P(Editors, SavingAnUnchangedRuleThatAnotherRemovedGivesAMessageToo) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [&](User &user) {
        run(u"DELETE FROM SMS_RULES");
        user.click(u"cmdOK");
        mine.expectTold({saveFailed}, rowChangedByAnother,
                        u"record ID " + id + u" could not be read again. " +
                            std::u16string(changedByAnother));
        EXPECT_TRUE(user.isOpen());
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(Editors, ARuleThatAnotherChangedIsNotRemovedUnseen) {
    const std::u16string id = addRule(u"A");
    mine.inRulesWindow([&](User &user) {
        meanwhile([&] {
            theirs.inEditor(id, [](User &other) {
                setWord(other, u"THEIRS");
                other.click(u"cmdOK");
            });
        });
        for (int attempt = 1; attempt <= 2; ++attempt) {
            confirmRemoval(mine, user, 1);
            mine.expectTold({removalFailed}, rowChangedByAnother,
                            u"The removal of record ID " + id + u" was not stored. " +
                                std::u16string(changedByAnother));
            EXPECT_EQ(user.rows(u"lvwRules"), Texts{u"A"});
            EXPECT_EQ(idOf(u"A"), id);
        }
        user.click(u"cmdCancel");
    });
    // A session that has read the change can remove the rule.
    mine.inRulesWindow([this](User &user) {
        user.clickRow(u"lvwRules", 1);
        EXPECT_EQ(ruleState().strWords, u"THEIRS");
        confirmRemoval(mine, user, 1);
        EXPECT_EQ(user.rows(u"lvwRules"), Texts());
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(ruleCount(), u"0");
}

TEST_P(Editors, ARuleThatAnotherSwitchedOffOrMovedIsNotRemovedUnseen) {
    addRule(u"A");
    for (const std::u16string change : {u"ACTIVE = 0", u"PRIORITY = 9"}) {
        mine.inRulesWindow([&](User &user) {
            run(u"UPDATE SMS_RULES SET " + change);
            confirmRemoval(mine, user, 1);
            mine.expectTold({removalFailed}, rowChangedByAnother, changedByAnother);
            user.click(u"cmdCancel");
        });
        EXPECT_EQ(ruleCount(), u"1");
    }
}

TEST_P(Editors, ARuleOfTheLongestTextsIsRemoved) {
    addRule(u"A");
    mine.inEditor(u"", [](User &user) {
        completeRule(user);
        rename(user, u"Long");
        setWord(user, std::u16string(4900, u'ä'));
        user.tickRow(actions, row::reply);
        ruleState().strReplyText = std::u16string(2400, u'\u20AC');
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(ruleCount(), u"2");
    mine.inRulesWindow([this](User &user) {
        const Texts rows = user.rows(u"lvwRules");
        const auto row = std::ranges::find(rows, u"Long");
        confirmRemoval(mine, user, static_cast<int>(row - rows.begin()) + 1);
        user.click(u"cmdCancel");
    });
    mine.utility.log.clear();
    mine.utility.messages.clear();
    EXPECT_EQ(idOf(u"Long"), u"NONE");
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(Editors, ARuleAddedInThisSessionIsRemovedInIt) {
    mine.inRulesWindow([this](User &user) {
        mine.toolkit.whenShown(u"frmRuleEdit", [](User &editor) {
            completeRule(editor);
            editor.click(u"cmdOK");
        });
        user.click(u"cmdNew");
        confirmRemoval(mine, user, 1);
        EXPECT_EQ(user.rows(u"lvwRules"), Texts());
        user.click(u"cmdCancel");
    });
    mine.expectNothingTold();
    EXPECT_EQ(ruleCount(), u"0");
}

} // namespace kvex::test

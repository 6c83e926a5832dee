// The dialogs of conditions on Qt: widgets and assistive technology.
#include "tests/windows/ConditionsOnScreen.h"
#include "tests/windows/EditorRows.h"
#include "tests/windows/QtOnScreen.h"

#include <QAccessible>

#include <cstdlib>

namespace kvex::test {
namespace {

class QtConditions : public ConditionsOnScreen {};

TEST_P(QtConditions, EveryControlThatTakesTheFocusHasANameForAssistiveTechnology) {
    ruleState().strPeople = ruleState().strWords = u"98";
    const auto check = [](OnScreenUser &shown) {
        QtUser &user = qtUser(shown);
        for (const std::u16string &name : user.tabOrder()) {
            QAccessibleInterface *accessible =
                QAccessible::queryAccessibleInterface(user.widget(name));
            ASSERT_NE(accessible, nullptr) << utf8(name);
            EXPECT_NE(accessible->text(QAccessible::Name), "") << utf8(name);
        }
        user.press(Key::escape);
    };
    for (const int condition : {row::fromPeople, row::throughAccounts, row::containsWords}) {
        playDialog(condition, check);
    }
    playOptions(u"WORD", check);
}

TEST_P(QtConditions, TheAccountButtonsStandBesideTheirLists) {
    playDialog(row::throughAccounts, [](OnScreenUser &shown) {
        QtUser &user = qtUser(shown);
        const auto top = [&](const char16_t *name) { return user.widget(name)->y(); };
        EXPECT_LT(std::abs(top(u"cmdAdd") - top(u"lvwAccountSource")), 4);
        EXPECT_LT(std::abs(top(u"cmdRemove") - top(u"lvwAccountSelected")), 4);
        user.press(Key::escape);
    });
}

INSTANTIATE_TEST_SUITE_P(Qt, QtConditions, testing::Values(&QtStage::make));

} // namespace
} // namespace kvex::test

#include "tests/toolkit/ConformanceList.h"

namespace kvex::test {
namespace {

/// A list of rules with check boxes, and what happened to its rows: "2" clicked, "+2" ticked,
/// "-2" unticked.
class Rules {
public:
    explicit Rules(Window &window)
        : view(filled(window, {u"Night", u"No Calls", u"no services", u"Other", u"Norma"})) {
        view.onItemClick = [this](int row) { deeds += std::to_string(row) + " "; };
        view.onItemCheck = [this](int row) {
            deeds += (view.checked(row) ? "+" : "-") + std::to_string(row) + " ";
        };
    }

    ListView &view;
    std::string deeds;
};

std::vector<ControlDesign> rulesAndText() {
    return {list(true), control(ControlKind::textBox, u"txt")};
}

TEST_P(ToolkitConformance, ListIsSearchedByTheFirstLettersOfItsRows) {
    const auto shown = window(rulesAndText());
    Rules rules(*shown);
    show(*shown, [&](Hands &user) {
        user.type(u"o");
        EXPECT_EQ(rules.view.selectedRow(), 4);
        user.press(Key::home);
        user.type(u"NOR");
        EXPECT_EQ(rules.view.selectedRow(), 5);
    });
    EXPECT_EQ(rules.deeds, "4 1 2 5 ");
}

TEST_P(ToolkitConformance, ListSearchTakesABlankAndTicksNothing) {
    const auto shown = window(rulesAndText());
    Rules rules(*shown);
    show(*shown, [&](Hands &user) {
        user.type(u"No s");
        EXPECT_EQ(rules.view.selectedRow(), 3);
        user.type(u"ervices");
        EXPECT_EQ(rules.view.selectedRow(), 3);
    });
    EXPECT_EQ(rules.deeds, "1 2 3 ");
}

TEST_P(ToolkitConformance, ListSearchThatFindsNothingTakesABlankToo) {
    const auto shown = window(rulesAndText());
    Rules rules(*shown);
    rules.view.select(1);
    show(*shown, [&](Hands &user) {
        user.type(u"x");
        user.press(Key::space);
        user.type(u"o");
        EXPECT_EQ(rules.view.selectedRow(), 1);
    });
    EXPECT_EQ(rules.deeds, "");
}

TEST_P(ToolkitConformance, ListSearchOfTheSameLetterGoesFromRowToRowAndRound) {
    const auto shown = window(rulesAndText());
    Rules rules(*shown);
    show(*shown, [&](Hands &user) { user.type(u"nNnnn"); });
    EXPECT_EQ(rules.deeds, "1 2 3 5 1 ");
}

TEST_P(ToolkitConformance, ListSearchBeginsBehindTheSelectedRowAndGoesOnFromIt) {
    const auto shown = window(rulesAndText());
    Rules rules(*shown);
    rules.view.select(2);
    show(*shown, [&](Hands &user) {
        user.type(u"n");
        EXPECT_EQ(rules.view.selectedRow(), 3);
        user.type(u"o");
        EXPECT_EQ(rules.view.selectedRow(), 3);
        user.type(u" c");
        EXPECT_EQ(rules.view.selectedRow(), 2);
    });
    EXPECT_EQ(rules.deeds, "3 2 ");
}

TEST_P(ToolkitConformance, ListSearchIsEndedByOtherKeysAndClicks) {
    const auto shown = window(rulesAndText());
    Rules rules(*shown);
    using End = std::function<void(Hands &)>;
    const std::vector<std::pair<std::string, End>> ends{
        {"4 5 +5 ", [](Hands &user) { user.press(Key::down); }},
        {"4 3 +3 ", [](Hands &user) { user.press(Key::up); }},
        {"4 1 +1 ", [](Hands &user) { user.press(Key::home); }},
        {"4 5 +5 ", [](Hands &user) { user.press(Key::end); }},
        {"4 +4 ", [](Hands &user) { user.press(Key::enter); }},
        {"4 +4 ", [](Hands &user) { user.press(Key::escape); }},
        {"4 2 +2 ", [](Hands &user) { user.clickRow(u"lvw", 2); }},
        {"4 +2 +4 ", [](Hands &user) { user.tickRow(u"lvw", 2); }},
        {"4 1 +1 ", [](Hands &user) { user.doubleClickRow(u"lvw", 1); }},
        {"4 +4 ", [](Hands &user) {
             user.press(Key::tab);
             user.press(Key::shiftTab);
         }}};
    show(*shown, [&](Hands &user) {
        for (const auto &[wanted, end] : ends) {
            for (int row = 1; row <= rules.view.rowCount(); ++row) {
                rules.view.setChecked(row, false);
            }
            rules.view.select(1);
            rules.deeds.clear();
            user.type(u"o");
            end(user);
            user.press(Key::space);
            EXPECT_EQ(rules.deeds, wanted);
            user.press(Key::escape);
        }
    });
}

TEST_P(ToolkitConformance, ListWithoutASelectedRowLeavesABlankWithoutEffect) {
    const auto shown = window(rulesAndText());
    Rules rules(*shown);
    const auto expectNothing = [&](Hands &user) {
        user.press(Key::space);
        EXPECT_EQ(rules.deeds, "");
        EXPECT_EQ(rules.view.selectedRow(), 0);
    };
    show(*shown, [&](Hands &user) {
        expectNothing(user);
        user.press(Key::tab);
        user.press(Key::shiftTab);
        expectNothing(user);
        rules.view.select(2);
        rules.view.deselect(2);
        expectNothing(user);
        rules.view.select(5);
        rules.view.removeRow(5);
        expectNothing(user);
        rules.view.clearRows();
        expectNothing(user);
        rules.view.addRow(u"new");
        expectNothing(user);
        rules.view.setSorted(true);
        expectNothing(user);
        user.tickRow(u"lvw", 1);
        EXPECT_EQ(std::exchange(rules.deeds, ""), "+1 ");
        expectNothing(user);
        EXPECT_TRUE(rules.view.checked(1));
    });
}

TEST_P(ToolkitConformance, ListWithoutASelectedRowIsEnteredAtItsEndByKeysToo) {
    const auto shown = window(rulesAndText());
    Rules rules(*shown);
    show(*shown, [&](Hands &user) {
        for (const Key key : {Key::down, Key::up, Key::home, Key::end}) {
            user.press(key);
            rules.view.deselect(rules.view.selectedRow());
        }
    });
    EXPECT_EQ(rules.deeds, "1 1 1 5 ");
}

TEST_P(ToolkitConformance, ListThatTabReachesSelectsItsFirstRowOnlyWhereTheDesignSaysSo) {
    ControlDesign starting = list(true);
    starting.startsAtFirstRow = true;
    const auto shown = window({control(ControlKind::textBox, u"txt"), starting});
    Rules rules(*shown);
    show(*shown, [&](Hands &user) {
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"lvw");
        EXPECT_EQ(rules.view.selectedRow(), 1);
        user.press(Key::down);
        user.press(Key::tab);
        user.press(Key::shiftTab);
        EXPECT_EQ(rules.view.selectedRow(), 2);
        user.press(Key::space);
        user.press(Key::tab);
        rules.view.clearRows();
        user.press(Key::tab);
        EXPECT_EQ(rules.view.selectedRow(), 0);
        rules.view.addRow(u"new");
        user.press(Key::tab);
        rules.view.setFocus();
        EXPECT_EQ(rules.view.selectedRow(), 0);
    });
    EXPECT_EQ(rules.deeds, "1 2 +2 ");
}

TEST_P(ToolkitConformance, ListDoubleClickedBesideItsRowsRaisesNothing) {
    for (const bool multiSelect : {false, true}) {
        ControlDesign design = list(false, multiSelect);
        design.lines = 8;
        const auto shown = window({design});
        Rules rules(*shown);
        rules.view.onDoubleClick = [&] { rules.deeds += "double "; };
        rules.view.select(2);
        show(*shown, [&](Hands &user) {
            user.doubleClickBesideRows(u"lvw");
            EXPECT_EQ(rules.view.selectedRow(), 0);
        });
        EXPECT_EQ(rules.deeds, "");
    }
}

} // namespace
} // namespace kvex::test

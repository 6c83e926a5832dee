#include "adapters/lightweight/LightDTPicker.h"

#include "platform/controls/Buttons.h"
#include "tests/toolkit/lightweight/TestWindow.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <utility>

namespace kvex::lightweight {
namespace {

using Date = std::array<int, 3>;

class LightPickerTest : public testing::Test {
protected:
    LightPickerTest()
        : window({{.kind = ControlKind::datePicker, .name = u"dtp", .format = u"dd/MM/yyy"},
                  {.kind = ControlKind::timePicker, .name = u"dtpTime", .format = u"HH:mm:ss"},
                  {.kind = ControlKind::commandButton, .name = u"cmd", .isDefault = true}}),
          picker(window.the<LightDTPicker>(u"dtp")), time(window.the<LightDTPicker>(u"dtpTime")) {
        picker.setDate(2004, 5, 14);
        picker.onChange = [this] { ++changes; };
    }
    void type(std::u16string_view keys) {
        for (std::size_t at = 0; at < keys.size(); ++at) {
            window.type(keys.substr(at, 1));
        }
    }
    [[nodiscard]] Date date() const { return {picker.year(), picker.month(), picker.day()}; }
    [[nodiscard]] Date clock() const { return {time.hour(), time.minute(), time.second()}; }
    /// The part that keys change.
    [[nodiscard]] static std::u16string part(const LightDTPicker &shown) {
        const auto [from, length] = shown.editor().part();
        return shown.editor().text().substr(from, length);
    }

    TestWindow window;
    LightDTPicker &picker;
    LightDTPicker &time;
    int changes = 0;
};

TEST_F(LightPickerTest, ShowsItsValueInTheFormatOfTheDesign) {
    time.setTime(7, 8, 59);
    EXPECT_EQ(picker.editor().text(), u"14/05/2004");
    EXPECT_EQ(time.editor().text(), u"07:08:59");
    EXPECT_EQ(picker.editor().length(), 10U);
    picker.clearValue();
    EXPECT_EQ(picker.editor().text(), u"");
    EXPECT_EQ(picker.editor().length(), 10U);
}

TEST(LightPicker, WithoutAFormatShowsTheUsualOne) {
    TestWindow window({{.kind = ControlKind::datePicker, .name = u"dtp"},
                       {.kind = ControlKind::timePicker, .name = u"dtpTime"}});
    window.the<LightDTPicker>(u"dtp").setDate(2004, 5, 14);
    window.the<LightDTPicker>(u"dtpTime").setTime(7, 8, 59);
    EXPECT_EQ(window.the<LightDTPicker>(u"dtp").editor().text(), u"14/05/2004");
    EXPECT_EQ(window.the<LightDTPicker>(u"dtpTime").editor().text(), u"07:08:59");
}

TEST(LightPicker, ShowsItsPartsWholeWhateverLengthTheFormatGivesThem) {
    TestWindow window({{.kind = ControlKind::datePicker, .name = u"dtp", .format = u"d.M.y"}});
    window.the<LightDTPicker>(u"dtp").setDate(2004, 5, 4);
    EXPECT_EQ(window.the<LightDTPicker>(u"dtp").editor().text(), u"04.05.2004");
}

TEST_F(LightPickerTest, ADateIsNoTimeAndATimeNoDate) {
    EXPECT_THROW(time.pickDate(2004, 5, 14), Error);
    EXPECT_THROW(picker.pickTime(1, 2, 3), Error);
    EXPECT_EQ(clock(), (Date{0, 0, 0}));
    EXPECT_EQ(date(), (Date{2004, 5, 14}));
}

TEST_F(LightPickerTest, AFirstDigitLeavesItsPartWhole) {
    type(u"1");
    EXPECT_EQ(picker.editor().text(), u"01/05/2004");
    EXPECT_EQ(part(picker), u"01");
}

TEST_F(LightPickerTest, ABlankClearsTheValueAndBringsItBack) {
    window.press(Key::space);
    EXPECT_FALSE(picker.hasValue());
    EXPECT_TRUE(window.type(u" "));
    EXPECT_TRUE(picker.hasValue());
    EXPECT_EQ(date(), (Date{2004, 5, 14}));
    EXPECT_EQ(changes, 2);
}

TEST_F(LightPickerTest, WithoutAValueItTakesNoKeyButTheBlank) {
    picker.clearValue();
    EXPECT_FALSE(window.type(u"3"));
    EXPECT_FALSE(picker.press(Key::up));
    EXPECT_FALSE(picker.hasValue());
    window.press(Key::down);
    EXPECT_EQ(window.focused(), u"dtpTime");
}

TEST_F(LightPickerTest, ArrowsGoFromPartToPartAndChangeThem) {
    EXPECT_EQ(part(picker), u"14");
    window.press({Key::up, Key::right, Key::down, Key::right, Key::pageUp});
    EXPECT_EQ(date(), (Date{2014, 4, 15}));
    EXPECT_EQ(part(picker), u"2014");
    window.press({Key::right, Key::left, Key::pageUp});
    EXPECT_EQ(date(), (Date{2014, 12, 15}));
    window.press({Key::home, Key::pageDown, Key::pageDown, Key::left});
    EXPECT_EQ(date(), (Date{2014, 12, 1}));
    EXPECT_EQ(part(picker), u"01");
    window.press(Key::end);
    EXPECT_EQ(part(picker), u"2014");
    EXPECT_EQ(changes, 6);
}

TEST_F(LightPickerTest, APartStopsAtItsFirstAndLastValue) {
    window.press({Key::tab});
    time.setTime(23, 0, 58);
    window.press({Key::up, Key::right, Key::down, Key::end, Key::up, Key::up});
    EXPECT_EQ(clock(), (Date{23, 0, 59}));
    window.press(Key::shiftTab);
    picker.setDate(2999, 2, 28);
    window.press({Key::up, Key::end, Key::up, Key::up});
    EXPECT_EQ(date(), (Date{3000, 2, 28}));
}

TEST_F(LightPickerTest, MonthsSteppedThroughKeepTheDayWhereTheyHaveIt) {
    picker.setDate(2004, 1, 31);
    window.press({Key::right, Key::up});
    EXPECT_EQ(date(), (Date{2004, 2, 29}));
    window.press(Key::up);
    EXPECT_EQ(date(), (Date{2004, 3, 31}));
    picker.setDate(2004, 3, 30);
    window.press({Key::up, Key::up});
    EXPECT_EQ(date(), (Date{2004, 5, 30}));
    picker.setDate(2004, 2, 29);
    window.press({Key::home, Key::up, Key::right, Key::up});
    EXPECT_EQ(date(), (Date{2004, 3, 29}));
}

TEST_F(LightPickerTest, ADayIsTypedBeforeTheMonthAndTheYearThatHaveIt) {
    struct Typing {
        Date from;
        const char16_t *keys;
        Date to;
    };
    for (const auto &[from, keys, to] : {
             Typing{{2024, 4, 20}, u"31052024", {2024, 5, 31}},
             Typing{{2023, 2, 20}, u"31012024", {2024, 1, 31}},
             Typing{{2023, 2, 20}, u"29022024", {2024, 2, 29}},
             Typing{{2024, 2, 29}, u"29022023", {2023, 2, 28}},
             Typing{{2024, 12, 31}, u"29021900", {1900, 2, 28}},
             Typing{{2024, 4, 20}, u"31", {2024, 4, 30}},
             Typing{{2024, 4, 20}, u"3110", {2024, 10, 31}},
             Typing{{2024, 4, 20}, u"45", {2024, 5, 4}},
             Typing{{2024, 4, 20}, u"001", {2024, 4, 1}},
             Typing{{2024, 4, 20}, u"391", {2024, 4, 30}},
             Typing{{2024, 4, 20}, u"31123000", {3000, 12, 31}},
         }) {
        picker.setDate(from[0], from[1], from[2]);
        window.press(Key::home);
        type(keys);
        EXPECT_EQ(date(), to) << testing::PrintToString(std::u16string(keys));
    }
}

TEST_F(LightPickerTest, ADateIsTypedWithSeparatorsOfEveryKindOrNone) {
    for (const auto &[keys, to] : std::vector<std::pair<std::u16string, Date>>{
             {u"05/06/2025", {2025, 6, 5}},
             {u"5.6.2025", {2025, 6, 5}},
             {u"1-2-1999", {1999, 2, 1}},
             {u"1 12 2025", {2025, 12, 1}},
             {u"31/02/2024", {2024, 2, 29}},
             {u"/11/2030", {2030, 11, 14}},
             {u"05//2025", {2025, 5, 5}},
             {u"३/४/२०२५", {2025, 4, 3}},
             {u"1/13/2025", {2025, 1, 1}},
         }) {
        picker.setDate(2004, 5, 14);
        window.press(Key::home);
        type(keys);
        EXPECT_EQ(date(), to) << testing::PrintToString(keys);
        EXPECT_TRUE(picker.hasValue());
    }
}

TEST_F(LightPickerTest, OnlyDigitsAndSeparatorsAreTyped) {
    for (const char16_t taken : std::u16string_view(u"1/.-:,")) {
        EXPECT_TRUE(window.type({&taken, 1})) << int{taken};
    }
    for (const char16_t left : std::u16string_view(u"x~+\u0660a")) {
        EXPECT_EQ(window.type({&left, 1}), left == u'\u0660') << int{left};
    }
    EXPECT_FALSE(window.type(u"1\u0301"));
}

TEST_F(LightPickerTest, ATimeIsTypedPartByPart) {
    window.press(Key::tab);
    for (const auto &[keys, to] : std::vector<std::pair<std::u16string, Date>>{
             {u"083015", {8, 30, 15}},
             {u"8:5:9", {8, 5, 9}},
             {u"000000", {0, 0, 0}},
             {u"99:7", {9, 9, 7}},
         }) {
        time.setTime(17, 0, 0);
        window.press(Key::home);
        type(keys);
        EXPECT_EQ(clock(), to) << testing::PrintToString(keys);
        EXPECT_EQ(time.editor().part(), (PickerText::Range{6, 2}));
    }
}

TEST_F(LightPickerTest, AYearBegunIsShownButIsNoYear) {
    window.press(Key::end);
    type(u"020");
    EXPECT_EQ(picker.editor().text(), u"14/05/20");
    EXPECT_EQ(picker.editor().part(), (PickerText::Range{6, 2}));
    EXPECT_EQ(picker.year(), 2004);
    window.press(Key::left);
    EXPECT_EQ(picker.editor().text(), u"14/05/2004");
    for (const auto &leave : std::vector<std::function<void()>>{
             [&] { window.press(Key::enter); },
             [&] { window.element(u"cmd")->takeFocus(); },
         }) {
        picker.setFocus();
        window.press(Key::end);
        type(u"1899");
        EXPECT_EQ(picker.editor().text(), u"14/05/189");
        leave();
        EXPECT_EQ(picker.editor().text(), u"14/05/2004");
    }
    EXPECT_EQ(changes, 0);
}

TEST_F(LightPickerTest, ADayThatWasReplacedIsNotBroughtBack) {
    type(u"31");
    picker.setDate(2004, 5, 14);
    window.press({Key::home, Key::right});
    type(u"06");
    EXPECT_EQ(date(), (Date{2004, 6, 14}));
    window.press(Key::home);
    type(u"30");
    window.press({Key::up, Key::home, Key::down});
    EXPECT_EQ(date(), (Date{2004, 7, 29}));
    window.press(Key::right);
    type(u"08");
    EXPECT_EQ(date(), (Date{2004, 8, 29}));
}

TEST_F(LightPickerTest, AFirstDigitIsForgottenByBackspaceAClickAndAValueOfCode) {
    for (const auto &forget : std::vector<std::function<void()>>{
             [&] { window.press(Key::backspace); },
             [&] { window.press(Key::deleteKey); },
             [&] { picker.clickAt(1); },
             [&] { picker.setDate(2004, 5, 14); },
         }) {
        type(u"2");
        forget();
        type(u"1");
        EXPECT_EQ(picker.day(), 1);
        window.press(Key::home);
    }
}

TEST_F(LightPickerTest, AClickLeadsToThePartThere) {
    picker.clickAt(3);
    EXPECT_EQ(part(picker), u"05");
    picker.clickAt(100);
    EXPECT_EQ(part(picker), u"2004");
    window.press({Key::tab, Key::shiftTab});
    EXPECT_EQ(part(picker), u"14");
}

TEST_F(LightPickerTest, EnterPressesTheDefaultButtonWithWhatIsTyped) {
    std::vector<Date> taken;
    window.get<CommandButton>(u"cmd").onClick = [&] { taken.push_back(date()); };
    type(u"05/06/2025");
    window.press({Key::enter, Key::home});
    type(u"7");
    window.press(Key::enter);
    EXPECT_EQ(taken, (std::vector<Date>{{2025, 6, 5}, {2025, 6, 7}}));
}

} // namespace
} // namespace kvex::lightweight

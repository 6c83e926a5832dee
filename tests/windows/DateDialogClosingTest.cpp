#include "tests/windows/DateDialogFixture.h"
#include "tests/windows/EditorRows.h"

namespace kvex::test {
namespace {

TEST_F(DateDialog, OkWithoutAChangeWritesTheSameRange) {
    playDialog(stored, [](User &user) { user.click(u"cmdOK"); });
    EXPECT_EQ(range(), stored);
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(DateDialog, LeftWithoutOkTheRangeStaysAndTheChangeFlagToo) {
    const std::pair<const char *, Script> ways[] = {
        {"button", [](User &user) { user.click(u"cmdCancel"); }},
        {"escape", [](User &user) { user.press(Key::escape); }},
        {"escape in a picker",
         [](User &user) {
             user.focusOn(u"ToTime");
             user.press(Key::escape);
         }},
        {"access key", [](User &user) { user.pressAccessKey(u'C'); }},
        {"frame", [](User &user) { user.closeByFrame(); }},
    };
    for (const auto &[name, leave] : ways) {
        SCOPED_TRACE(name);
        playDialog(stored, [&leave = leave](User &user) {
            pick(user, start, {2004, 5, 1}, {1, 2, 3});
            user.tickPicker(u"ToTime", false);
            leave(user);
        });
        EXPECT_EQ(range(), stored);
        EXPECT_TRUE(session().blnChanged);
    }
}

TEST_F(DateDialog, EnterAndTheAccessKeyAreOk) {
    const std::pair<const char *, Script> ways[] = {
        {"enter in a date", [](User &user) { user.press(Key::enter); }},
        {"enter in a time",
         [](User &user) {
             user.focusOn(u"ToTime");
             user.press(Key::enter);
         }},
        {"enter on OK",
         [](User &user) {
             user.focusOn(u"cmdOK");
             user.press(Key::enter);
         }},
        {"access key", [](User &user) { user.pressAccessKey(u'O'); }},
    };
    for (const auto &[name, confirm] : ways) {
        SCOPED_TRACE(name);
        playDialog(stored, [&confirm = confirm](User &user) {
            user.pickTime(u"FromTime", 1, 2, 3);
            user.focusOn(u"FromDate");
            confirm(user);
        });
        EXPECT_EQ(range(), u"20040514 01:02:03,20040520 17:00:00");
    }
}

TEST_F(DateDialog, TheEditorDescribesTheRangeOnceTheDialogIsClosed) {
    const auto description = [](User &editor) {
        return editor.get<RichTextBox>(u"rtRuleDesc").text();
    };
    const std::u16string applied = u"Apply this Rule after the message arrives\r\n";
    playEditor({[](User &user) {
                    pick(user, start, {2024, 2, 29}, {0, 0, 0});
                    pick(user, end, {2024, 3, 31});
                    user.click(u"cmdOK");
                },
                [](User &user) {
                    pick(user, start, {2023, 1, 1});
                    user.click(u"cmdCancel");
                },
                [](User &user) {
                    user.tickPicker(u"FromTime", false);
                    user.click(u"cmdOK");
                }},
               [&](User &editor) {
                   editor.tickRow(conditions, row::withinDates);
                   editor.click(u"cmdEditCondition");
                   const std::u16string described = description(editor);
                   EXPECT_EQ(described, applied + u"If the message is received between "
                                                  u"29/02/2024 00:00:00 Hrs. to 31/03/2024 "
                                                  u"23:59:59 Hrs.");
                   editor.click(u"cmdEditCondition");
                   EXPECT_EQ(description(editor), described);
                   editor.click(u"cmdEditCondition");
                   EXPECT_EQ(description(editor), applied + u"If the message is received "
                                                            u"between 29/02/2024  Hrs. to "
                                                            u"31/03/2024 23:59:59 Hrs.");
                   editor.press(Key::escape);
               });
}

TEST_F(DateDialog, ARuleIsSavedWithItsRangeAndReadAgain) {
    playEditor({[](User &user) {
                   pick(user, start, {2004, 5, 14}, {8, 30, 0});
                   pick(user, end, {2004, 5, 20}, {17, 0, 0});
                   user.press(Key::enter);
               }},
               [](User &editor) {
                   editor.tickRow(conditions, row::withinDates);
                   editor.click(u"cmdEditCondition");
                   editor.tickRow(actions, row::noMoreRules);
                   editor.click(u"cmdOK");
               });
    EXPECT_EQ(
        database.rows("SELECT QueryParam FROM SMS_RULES"),
        (std::vector<std::string>{"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE>"
                                  "<DATETIME>20040514 08:30:00,20040520 17:00:00</DATETIME>"}));
    playEditor(
        {[](User &user) {
            EXPECT_EQ(dateOf(user, start), (Date{2004, 5, 14}));
            EXPECT_EQ(timeOf(user, start), (Time{8, 30, 0}));
            EXPECT_EQ(dateOf(user, end), (Date{2004, 5, 20}));
            EXPECT_EQ(timeOf(user, end), (Time{17, 0, 0}));
            user.press(Key::escape);
        }},
        [](User &editor) {
            editor.clickRow(conditions, row::withinDates);
            editor.click(u"cmdEditCondition");
            editor.press(Key::escape);
        },
        u"1");
}

} // namespace
} // namespace kvex::test

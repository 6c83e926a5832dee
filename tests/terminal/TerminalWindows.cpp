#include "tests/terminal/TerminalWindows.h"

#include "host/addressbook/AddressBookWindow.h"
#include "platform/Text.h"
#include "tests/windows/EditorRows.h"

namespace kvex::test {
namespace {

constexpr auto wholeConditions =
    "<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><PEOPLE><CON><ANY>9811100011;9811100022</PEOPLE>"
    "<ACCOUNT><CON><ANY>2;4</ACCOUNT><WORD><NOT><ALL>STOP;HALT</WORD>"
    "<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>";
constexpr auto wholeActions = "<DIST>3;7</DIST><REPLY>Received;2</REPLY>"
                              "<ALERT>New message;2;9811100033;9811100044</ALERT>"
                              "<DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>";

} // namespace

TerminalWindows::TerminalWindows(terminal::Size size, terminal::TerminalKind kind)
    : play_(size, std::move(kind)), platform_(utility_, play_.toolkit(), database_.provider()) {
    utility_.connectionString = database_.connectionString();
    session().blnChanged = false;
    ruleState() = RuleState();
    database_.addUser(3, "Asha");
    database_.addUser(7, "José Müller");
    database_.addAccount(2, "Main modem");
    database_.addAccount(4, "दिल्ली कार्यालय");
    int priority = 0;
    for (const char *name : {"Drop spam", "हिन्दी नियम", "Office hours 👩‍💻"}) {
        database_.addRule(name, "<ALLMESSAGES>", TestDatabase::deleteNothing, ++priority);
    }
}

void TerminalWindows::walk(const Check &check) {
    const auto whole = database_.addRule("Whole", wholeConditions, wholeActions);
    play_.whenShown(u"frmRuleEdit", [&](TerminalUser &editor) { walkEditor(editor, check); });
    SessionOwner owner(platform_);
    owner.ShowRules(u"1", toText(whole));
    owner.release();
    walkAddressBook(check);
}

void TerminalWindows::walkEditor(TerminalUser &editor, const Check &check) {
    const auto checked = [&](const std::u16string &window,
                             const TerminalPlay::Script &further = {}) {
        play_.whenShown(window, [&check, window, further](TerminalUser &user) {
            check(user, toUtf8(window));
            if (further) {
                further(user);
            }
            user.press(Key::escape);
        });
    };
    check(editor, "frmRuleEdit");
    checked(u"frmRulePeople");
    openPart(editor, conditions, row::fromPeople, u'e');
    checked(u"frmRuleAccount");
    openPart(editor, conditions, row::throughAccounts, u'e');
    checked(u"frmRuleWords", [&](TerminalUser &user) {
        checked(u"frmRuleOptions");
        user.pressAccessKey(u'p');
    });
    openPart(editor, conditions, row::containsWords, u'e');
    checked(u"frmRuleDate");
    openPart(editor, conditions, row::withinDates, u'e');
    checked(u"frmRuleDistribute");
    openPart(editor, actions, row::distribute, u's');
    checked(u"frmRuleReply");
    openPart(editor, actions, row::reply, u's');
    checked(u"frmRuleAlert");
    openPart(editor, actions, row::alert, u's');
    checked(u"frmRules");
    editor.press(Key::escape);
}

/// Selects the row of the list, and presses the button with this access key.
void TerminalWindows::openPart(TerminalUser &editor, std::u16string_view list, int row,
                               char16_t button) {
    while (editor.focused() != list) {
        editor.press(Key::tab);
    }
    editor.press(Key::home);
    for (int below = 1; below < row; ++below) {
        editor.press(Key::down);
    }
    editor.pressAccessKey(button);
}

void TerminalWindows::walkAddressBook(const Check &check) {
    host::AddressBookWindow book(play_.toolkit(),
                                 {{u"1", u"Asha", u"+919811100011"},
                                  {u"2", u"José Müller", u"+4917612345678"},
                                  {u"3", u"दिल्ली कार्यालय", u"+911123456789"}},
                                 true);
    play_.whenShown(u"frmAddressBook", [&](TerminalUser &user) {
        check(user, "frmAddressBook");
        user.press(Key::escape);
    });
    static_cast<void>(book.show());
}

} // namespace kvex::test

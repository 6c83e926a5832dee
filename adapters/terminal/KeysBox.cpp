#include "adapters/terminal/KeysBox.h"

#include "adapters/terminal/MessageBoxDesign.h"
#include "adapters/terminal/TerminalWindow.h"
#include "kvex/MessageBox.h"
#include "platform/controls/Buttons.h"

namespace kvex::terminal {
namespace {

/// Each line fits a terminal of 40 columns.
constexpr const char16_t *keys = u"Tab, Shift+Tab  next, previous one\n"
                                 u"Arrows          rows, text, choice\n"
                                 u"Space           tick, press\n"
                                 u"Enter           the button in < >\n"
                                 u"Esc             cancel\n"
                                 u"Alt+letter      underlined letter\n"
                                 u"F2, letter      the same\n"
                                 u"Left, Right     move wide rows\n"
                                 u"Page keys       scroll\n"
                                 u"Shift+arrows    select text\n"
                                 u"Ctrl+X, C, V    cut, copy, paste\n"
                                 u"Ctrl+Z          suspend";

} // namespace

void showKeysBox(Desktop &desktop, const std::u16string &status) {
    const std::u16string text = status.empty() ? keys : status + u"\n\n" + keys;
    TerminalWindow box(desktop, messageBoxDesign(u"Help", text, message_box::exclamation),
                       Shape::box, {});
    box.get<CommandButton>(okButton).onClick = [&box] { box.close(); };
    box.showModal();
}

} // namespace kvex::terminal

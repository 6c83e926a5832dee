#include "host/kvexrules/TerminalUtility.h"

#include "host/kvexrules/Console.h"
#include "platform/Text.h"
#include "platform/controls/Toolkit.h"

namespace kvex::host {

std::int32_t TerminalUtility::showMessage(const std::u16string &text, std::int32_t style) {
    complain(toUtf8(text));
    return style == message_box::yesNo ? message_box::no : message_box::ok;
}

} // namespace kvex::host

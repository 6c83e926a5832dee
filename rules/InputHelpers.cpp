#include "rules/InputHelpers.h"

#include "component/session/Session.h"
#include "platform/Text.h"

namespace kvex {
namespace {

constexpr std::int16_t copyKey = 3;
constexpr std::int16_t backspaceKey = 8;
constexpr std::int16_t tabKey = 9;
constexpr std::int16_t pasteKey = 22;
constexpr std::int16_t cutKey = 24;

bool clipboardHoldsAmount() {
    const Clipboard &clipboard = session().platform->toolkit().clipboard();
    if (!clipboard.hasText()) {
        return false;
    }
    const std::u16string text = clipboard.text();
    return isNumeric(text) && toDouble(text) >= 0;
}

} // namespace

bool IsNumericKey(std::int16_t keyCode, bool integerOnly) {
    switch (keyCode) {
    case copyKey:
    case backspaceKey:
    case tabKey:
    case cutKey:
        return true;
    case u'.':
        return !integerOnly;
    case pasteKey:
        return clipboardHoldsAmount();
    default:
        return keyCode >= u'0' && keyCode <= u'9';
    }
}

std::u16string PadLeft(std::u16string_view text, std::int32_t width, char16_t fill) {
    const auto missing = std::int64_t{width} - static_cast<std::int64_t>(text.size());
    if (missing < 0) {
        throw Error(error_number::invalidCall);
    }
    return std::u16string(static_cast<std::size_t>(missing), fill).append(text);
}

} // namespace kvex

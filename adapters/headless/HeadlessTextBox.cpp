#include "adapters/headless/HeadlessTextBox.h"

#include "adapters/headless/HeadlessWindow.h"
#include "platform/Utf16.h"

#include <algorithm>
#include <limits>

namespace kvex::headless {
namespace {

constexpr char16_t copyCode = 3;
constexpr char16_t backspaceCode = 8;
constexpr char16_t pasteCode = 22;
constexpr char16_t cutCode = 24;

/// Whether `at` is in the middle of a surrogate pair or of a CR LF.
bool isInside(std::u16string_view text, std::size_t at) {
    if (at == 0 || at >= text.size()) {
        return false;
    }
    const bool isPair = isHighSurrogate(text[at - 1]) && isLowSurrogate(text[at]);
    return isPair || text.substr(at - 1, 2) == u"\r\n";
}

std::size_t before(std::u16string_view text, std::size_t at) {
    const std::size_t previous = at == 0 ? 0 : at - 1;
    return isInside(text, previous) ? previous - 1 : previous;
}

std::size_t after(std::u16string_view text, std::size_t at) {
    const std::size_t next = std::min(at + 1, text.size());
    return isInside(text, next) ? next + 1 : next;
}

std::size_t lineStart(std::u16string_view text, std::size_t at) {
    const std::size_t end = at == 0 ? std::u16string_view::npos : text.rfind(u'\n', at - 1);
    return end == std::u16string_view::npos ? 0 : end + 1;
}

std::size_t lineEnd(std::u16string_view text, std::size_t at) {
    return std::min(text.find(u'\r', at), text.size());
}

std::size_t inNextLine(std::u16string_view text, std::size_t at) {
    const std::size_t end = lineEnd(text, at);
    if (end == text.size()) {
        return at;
    }
    const std::size_t next = end + 2;
    return std::min(next + at - lineStart(text, at), lineEnd(text, next));
}

std::size_t inPreviousLine(std::u16string_view text, std::size_t at) {
    const std::size_t start = lineStart(text, at);
    if (start == 0) {
        return at;
    }
    const std::size_t previousEnd = start - 2;
    return std::min(lineStart(text, previousEnd) + at - start, previousEnd);
}

} // namespace

void TextInput::replace(std::size_t from, std::size_t length, std::u16string_view with) {
    const bool isOther = std::u16string_view(text_).substr(from, length) != with;
    text_.replace(from, length, with);
    caret_ = anchor_ = from + with.size();
    replaced(from, length, with.size());
    if (isOther) {
        changed();
    }
}

void TextInput::replaceSelection(std::u16string_view with) {
    const auto [from, length] = selection();
    replace(from, length, with);
}

TextInput::Range TextInput::selection() const {
    return {std::min(caret_, anchor_), std::max(caret_, anchor_) - std::min(caret_, anchor_)};
}

std::size_t TextInput::room() const {
    const std::size_t kept = text_.size() - selection().length;
    return limit() > kept ? limit() - kept : 0;
}

bool TextInput::type(std::u16string_view character) {
    if (!design().readOnly &&
        std::ranges::all_of(character, [this](char16_t unit) { return passes(unit); }) &&
        character.size() <= room()) {
        replaceSelection(character);
    }
    return true;
}

bool TextInput::press(Key key) {
    switch (key) {
    case Key::space:
        return type(u" ");
    case Key::backspace:
    case Key::deleteKey:
        erase(key);
        return true;
    case Key::cut:
    case Key::copy:
    case Key::paste:
        useClipboard(key);
        return true;
    case Key::selectAll:
        anchor_ = 0;
        caret_ = text_.size();
        return true;
    case Key::up:
    case Key::down:
    case Key::home:
    case Key::end:
        moveCaret(key);
        return true;
    default:
        return false;
    }
}

void TextInput::erase(Key key) {
    if (design().readOnly || (key == Key::backspace && !passes(backspaceCode))) {
        return;
    }
    if (selection().length == 0) {
        anchor_ = key == Key::backspace ? before(text_, caret_) : after(text_, caret_);
    }
    replaceSelection({});
}

void TextInput::useClipboard(Key key) {
    HeadlessClipboard &clipboard = window()->clipboard();
    if (key == Key::copy ? !passes(copyCode)
                         : design().readOnly || !passes(key == Key::cut ? cutCode : pasteCode)) {
        return;
    }
    if (key == Key::paste) {
        std::u16string text = pasteable(clipboard.text());
        const std::size_t length = std::min(text.size(), room());
        text.resize(isInside(text, length) ? length - 1 : length);
        if (!text.empty()) {
            replaceSelection(text);
        }
        return;
    }
    const auto [from, length] = selection();
    if (length > 0) {
        clipboard.setText(text_.substr(from, length));
        if (key == Key::cut) {
            replaceSelection({});
        }
    }
}

void TextInput::moveCaret(Key key) {
    switch (key) {
    case Key::up:
        caret_ = inPreviousLine(text_, caret_);
        break;
    case Key::down:
        caret_ = inNextLine(text_, caret_);
        break;
    case Key::home:
        caret_ = lineStart(text_, caret_);
        break;
    default:
        caret_ = lineEnd(text_, caret_);
        break;
    }
    anchor_ = caret_;
}

HeadlessTextBox::HeadlessTextBox(HeadlessWindow *window, const ControlDesign &design)
    : HeadlessControl(window, design) {
    replace(0, 0, design.caption);
}

bool HeadlessTextBox::passes(char16_t keyCode) {
    auto code = static_cast<std::int16_t>(keyCode);
    deliver(onKeyPress, code);
    return code != 0;
}

std::u16string HeadlessTextBox::pasteable(std::u16string_view text) const {
    return std::u16string(text.substr(0, text.find_first_of(u"\r\n")));
}

std::size_t HeadlessTextBox::limit() const {
    return design().maxLength > 0 ? static_cast<std::size_t>(design().maxLength)
                                  : std::numeric_limits<std::size_t>::max();
}

} // namespace kvex::headless

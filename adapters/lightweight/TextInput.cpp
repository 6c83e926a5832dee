#include "adapters/lightweight/TextInput.h"

#include "adapters/lightweight/LightWindow.h"

#include <algorithm>
#include <cstdlib>

namespace kvex::lightweight {
namespace {

constexpr char16_t copyCode = 3;
constexpr char16_t backspaceCode = 8;
constexpr char16_t pasteCode = 22;
constexpr char16_t cutCode = 24;

bool goesByLines(Key key) {
    return key == Key::up || key == Key::down || key == Key::pageUp || key == Key::pageDown;
}

} // namespace

void TextInput::replace(std::size_t from, std::size_t length, std::u16string_view with) {
    const bool isOther = std::u16string_view(text_).substr(from, length) != with;
    text_.replace(from, length, with);
    caret_ = anchor_ = from + with.size();
    column_.reset();
    replaced(from, length, with.size());
    tellChange();
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

void TextInput::setCaret(std::size_t at, bool selects) {
    caret_ = std::min(at, text_.size());
    if (!selects) {
        anchor_ = caret_;
    }
    column_.reset();
    tellChange();
}

std::size_t TextInput::room() const {
    const std::size_t kept = text_.size() - selection().length;
    return limit() > kept ? limit() - kept : 0;
}

TextLine TextInput::line(std::size_t at) const {
    if (!hasLines()) {
        return {0, text_.size(), noLine};
    }
    return lineFinder_ ? lineFinder_(at) : unwrappedLine(text_, at);
}

bool TextInput::type(std::u16string_view cluster) {
    if (!design().readOnly &&
        std::ranges::all_of(cluster, [this](char16_t unit) { return passes(unit); }) &&
        cluster.size() <= room()) {
        replaceSelection(cluster);
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
        setCaret(0);
        setCaret(text_.size(), true);
        return true;
    default:
        return moveBy(key);
    }
}

void TextInput::erase(Key key) {
    if (design().readOnly || (key == Key::backspace && !passes(backspaceCode))) {
        return;
    }
    if (selection().length == 0) {
        anchor_ =
            key == Key::backspace ? characterBefore(text_, caret_) : clusterAfter(text_, caret_);
    }
    replaceSelection({});
}

void TextInput::useClipboard(Key key) {
    LightClipboard &clipboard = window()->clipboard();
    if (key == Key::copy ? !passes(copyCode)
                         : design().readOnly || !passes(key == Key::cut ? cutCode : pasteCode)) {
        return;
    }
    if (key == Key::paste) {
        std::u16string text = pasteable(clipboard.text());
        const std::size_t length = std::min(text.size(), room());
        text.resize(isInsideCharacter(text, length) ? length - 1 : length);
        if (!text.empty()) {
            replaceSelection(text);
        }
        return;
    }
    const auto [from, length] = selection();
    if (length > 0) {
        clipboard.copy(text_.substr(from, length));
        if (key == Key::cut) {
            replaceSelection({});
        }
    }
}

/// Left and Right without Shift leave a selection by its end.
bool TextInput::moveBy(Key key) {
    const auto [from, length] = selection();
    if (length > 0 && (key == Key::left || key == Key::right)) {
        setCaret(key == Key::left ? from : from + length);
        return true;
    }
    const Key plain = controls::withoutShift(key);
    const auto place = placeAfter(plain);
    if (place) {
        const auto kept = goesByLines(plain) ? std::optional(column()) : std::nullopt;
        setCaret(*place, plain != key);
        column_ = kept;
    }
    return place.has_value();
}

int TextInput::column() const {
    return column_.value_or(columnOf(text_, line(caret_), caret_));
}

/// Where the key leads; nothing if it is no key of the caret.
std::optional<std::size_t> TextInput::placeAfter(Key key) const {
    switch (key) {
    case Key::left:
        return clusterBefore(text_, caret_);
    case Key::right:
        return clusterAfter(text_, caret_);
    case Key::wordLeft:
        return wordBefore(text_, caret_);
    case Key::wordRight:
        return wordAfter(text_, caret_);
    case Key::home:
        return line(caret_).from;
    case Key::end:
        return line(caret_).to;
    case Key::textStart:
        return 0;
    case Key::textEnd:
        return text_.size();
    case Key::up:
        return linesAway(-1);
    case Key::down:
        return linesAway(1);
    case Key::pageUp:
        return linesAway(-page_);
    case Key::pageDown:
        return linesAway(page_);
    default:
        return std::nullopt;
    }
}

/// The place in the caret's column so many lines below, or above for a negative number. Stays in
/// the caret's line at the ends of the text.
std::size_t TextInput::linesAway(int lines) const {
    TextLine found = line(caret_);
    for (int left = std::abs(lines); left > 0; --left) {
        const bool isLast = lines > 0 ? found.next == noLine : found.from == 0;
        if (isLast) {
            break;
        }
        found = line(lines > 0 ? found.next : characterBefore(text_, found.from));
    }
    return placeInLine(text_, found, column());
}

} // namespace kvex::lightweight

#include "adapters/terminal/io/KeySequences.h"

#include <algorithm>
#include <array>

namespace kvex::terminal {
namespace {

using controls::Key;

enum Held : unsigned { none = 0, shift = 1, alt = 2, control = 4 };

/// A key alone, with Shift, with Ctrl and with both.
struct KeyForms {
    std::optional<Key> alone;
    std::optional<Key> withShift;
    std::optional<Key> withControl;
    std::optional<Key> withBoth;

    [[nodiscard]] std::optional<Key> of(unsigned held) const {
        const bool hasControl = (held & (alt | control)) != 0;
        if ((held & shift) != 0) {
            return hasControl ? withBoth : withShift;
        }
        return hasControl ? withControl : alone;
    }
};

constexpr KeyForms same(Key key) {
    return {key, key, key, key};
}

constexpr KeyForms upForms{Key::up, Key::selectUp, Key::goUp, Key::selectUp};
constexpr KeyForms downForms{Key::down, Key::selectDown, Key::goDown, Key::selectDown};
constexpr KeyForms rightForms{Key::right, Key::selectRight, Key::wordRight, Key::selectWordRight};
constexpr KeyForms leftForms{Key::left, Key::selectLeft, Key::wordLeft, Key::selectWordLeft};
constexpr KeyForms homeForms{Key::home, Key::selectHome, Key::textStart, Key::selectHome};
constexpr KeyForms endForms{Key::end, Key::selectEnd, Key::textEnd, Key::selectEnd};
constexpr KeyForms insertForms{std::nullopt, Key::paste, Key::copy, std::nullopt};
constexpr KeyForms deleteForms{Key::deleteKey, Key::cut, Key::deleteKey, Key::deleteKey};

const KeyForms *formsOfLetter(char final) {
    static constexpr std::array<std::pair<char, KeyForms>, 10> rows{{
        {'A', upForms},
        {'B', downForms},
        {'C', rightForms},
        {'D', leftForms},
        {'H', homeForms},
        {'F', endForms},
        {'P', same(Key::help)},
        {'Q', same(Key::accessKey)},
        {'M', same(Key::enter)},
        {'I', same(Key::tab)},
    }};
    const auto *const row = std::ranges::find(rows, final, &std::pair<char, KeyForms>::first);
    return row == rows.end() ? nullptr : &row->second;
}

const KeyForms *formsOfNumber(int number) {
    static constexpr std::array<std::pair<int, KeyForms>, 10> rows{{
        {1, homeForms},
        {2, insertForms},
        {3, deleteForms},
        {4, endForms},
        {5, same(Key::pageUp)},
        {6, same(Key::pageDown)},
        {7, homeForms},
        {8, endForms},
        {11, same(Key::help)},
        {12, same(Key::accessKey)},
    }};
    const auto *const row = std::ranges::find(rows, number, &std::pair<int, KeyForms>::first);
    return row == rows.end() ? nullptr : &row->second;
}

std::optional<Key> keyOf(const KeyForms *forms, unsigned held) {
    return forms == nullptr ? std::nullopt : forms->of(held);
}

/// The keys that a number of xterm names.
unsigned heldOf(int number) {
    return number > 1 ? static_cast<unsigned>(number) - 1 : none;
}

} // namespace

int takeNumber(std::string_view &parameters) {
    constexpr int greatest = 9999;
    int number = 0;
    while (!parameters.empty() && parameters.front() != ';') {
        const char digit = parameters.front();
        if (digit >= '0' && digit <= '9') {
            number = std::min(greatest, number * 10 + (digit - '0'));
        }
        parameters.remove_prefix(1);
    }
    parameters.remove_prefix(parameters.empty() ? 0 : 1);
    return number;
}

std::optional<Key> keyOfByte(char byte) {
    switch (byte) {
    case '\0': // Ctrl+Space
        return Key::toggleRow;
    case '\x01':
        return Key::selectAll;
    case '\x03':
        return Key::copy;
    case '\x08':
    case '\x7f':
        return Key::backspace;
    case '\t':
        return Key::tab;
    case '\n':
    case '\r':
        return Key::enter;
    case '\x16':
        return Key::paste;
    case '\x18':
        return Key::cut;
    case '\x1a':
        return Key::suspend;
    default:
        return std::nullopt;
    }
}

std::optional<Key> keyOfControl(std::string_view parameters, char final) {
    const int number = takeNumber(parameters);
    const int second = takeNumber(parameters);
    switch (final) {
    case '~':
        return keyOf(formsOfNumber(number), heldOf(second));
    // rxvt says with the last character which keys are held.
    case '$':
        return keyOf(formsOfNumber(number), shift);
    case '^':
        return keyOf(formsOfNumber(number), control);
    case '@':
        return keyOf(formsOfNumber(number), shift | control);
    case 'a':
    case 'b':
    case 'c':
    case 'd':
        return keyOf(formsOfLetter(static_cast<char>(final - 'a' + 'A')), shift);
    case 'Z':
        return Key::shiftTab;
    // These two are not on a key.
    case 'I':
    case 'M':
        return std::nullopt;
    default:
        return keyOf(formsOfLetter(final), heldOf(second != 0 ? second : number));
    }
}

std::optional<Key> keyOfSingleShift(std::string_view parameters, char final) {
    const int number = takeNumber(parameters);
    const int second = takeNumber(parameters);
    if (final >= 'a' && final <= 'd') {
        return keyOf(formsOfLetter(static_cast<char>(final - 'a' + 'A')), control);
    }
    return keyOf(formsOfLetter(final), heldOf(second != 0 ? second : number));
}

char16_t characterOfKeypad(char final) {
    // The sequences end with the letters from "j" on, in the order of ASCII from "*" on.
    if (final >= 'j' && final <= 'y') {
        return static_cast<char16_t>(final - 'j' + '*');
    }
    return final == 'X' ? u'=' : u'\0';
}

} // namespace kvex::terminal

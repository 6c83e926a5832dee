// What a terminal's user does.
#pragma once

#include "adapters/controls/Keys.h"
#include "adapters/terminal/io/Geometry.h"

#include <string>
#include <variant>

namespace kvex::terminal {

/// A character, the blank included. Alt+letter and Esc with a letter right after it have `alt`.
struct Typed {
    std::u16string cluster;
    bool alt = false;
    friend bool operator==(const Typed &, const Typed &) = default;
};

/// A key without a character.
struct Stroke {
    controls::Key key;
    friend bool operator==(const Stroke &, const Stroke &) = default;
};

/// Lines end with LF.
struct Pasted {
    std::u16string text;
    friend bool operator==(const Pasted &, const Pasted &) = default;
};

struct MouseEvent {
    enum class Kind { press, doubleClick, wheelUp, wheelDown };
    Kind kind;
    Point at;
    friend bool operator==(const MouseEvent &, const MouseEvent &) = default;
};

/// The terminal has another size.
struct Resized {
    friend bool operator==(const Resized &, const Resized &) = default;
};

/// The user is gone. Nothing else follows.
struct HungUp {
    friend bool operator==(const HungUp &, const HungUp &) = default;
};

/// The terminal has forgotten what it showed, after a suspend for example, or the user doubts it.
struct Repaint {
    friend bool operator==(const Repaint &, const Repaint &) = default;
};

using Input = std::variant<Typed, Stroke, Pasted, MouseEvent, Resized, HungUp, Repaint>;

} // namespace kvex::terminal

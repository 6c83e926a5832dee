// The bytes of a typed character.
#pragma once

#include "adapters/terminal/io/Input.h"

#include <optional>
#include <string>

namespace kvex::terminal {

/// Gathers the bytes of a character that is not ASCII. Bytes that are none are dropped, and so are
/// control characters.
class PartialCharacter {
public:
    /// Esc came before the character.
    void beginWithAlt() {
        clear();
        hasAlt_ = true;
    }
    /// Takes a byte from 0x80 on. Returns the character when this byte completes it.
    [[nodiscard]] std::optional<Typed> take(char byte);
    void clear() {
        bytes_.clear();
        hasAlt_ = false;
    }
    [[nodiscard]] bool isEmpty() const noexcept { return bytes_.empty(); }

private:
    std::string bytes_;
    bool hasAlt_ = false;
};

} // namespace kvex::terminal

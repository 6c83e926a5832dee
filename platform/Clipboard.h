// Reads the clipboard.
#pragma once

#include <string>

namespace kvex {

class Clipboard {
public:
    virtual ~Clipboard() = default;
    [[nodiscard]] virtual bool hasText() const = 0;
    /// "" when the clipboard holds no text.
    [[nodiscard]] virtual std::u16string text() const = 0;
};

} // namespace kvex

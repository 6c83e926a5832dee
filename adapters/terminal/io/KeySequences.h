// The byte sequences that keys send on all common terminals.
#pragma once

#include "adapters/controls/Keys.h"

#include <optional>
#include <string_view>

namespace kvex::terminal {

/// The key of a control character, such as Tab or Ctrl+C.
[[nodiscard]] std::optional<controls::Key> keyOfByte(char byte);

/// The key of the sequence Esc [ PARAMETERS FINAL. The last of two numbers names the keys that are
/// held down: 1 more than 1 for Shift, 2 for Alt and 4 for Ctrl.
[[nodiscard]] std::optional<controls::Key> keyOfControl(std::string_view parameters, char final);

/// The key of the sequence Esc O PARAMETERS FINAL.
[[nodiscard]] std::optional<controls::Key> keyOfSingleShift(std::string_view parameters,
                                                            char final);

/// The character of Esc O FINAL on the keypad; 0 if it is none.
[[nodiscard]] char16_t characterOfKeypad(char final);

/// Reads the number before the first ";" and takes both away. No number is 0, and 9999 stands for
/// all that are greater.
[[nodiscard]] int takeNumber(std::string_view &parameters);

} // namespace kvex::terminal

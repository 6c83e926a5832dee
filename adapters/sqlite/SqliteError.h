// Turns SQLite's result codes into the system's errors.
#pragma once

#include "platform/Error.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kvex::sqlite {

/// An error's number is this base plus SQLite's extended result code, whose lowest 8 bits are the
/// primary code: -2147221499 for a locked database (5). The error's source is "SQLite".
inline constexpr std::int32_t errorBase = -2147221504;

/// The error for a result code; its description says what happened, with SQLite's `message`. `name`
/// is the database as the user wrote it. The number is outOfMemory when memory ran out.
[[nodiscard]] Error errorOf(int code, std::u16string_view name, std::u16string_view message);

/// An error with its own description.
[[nodiscard]] Error errorWith(int code, HelpContext context, std::u16string description);

} // namespace kvex::sqlite

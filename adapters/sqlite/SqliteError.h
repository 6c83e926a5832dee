// Turns what SQLite reports into the system's errors: the one place that does.
#pragma once

#include "platform/Error.h"

#include <cstdint>
#include <string_view>

namespace kvex::sqlite {

/// The number of an error is this one with SQLite's extended result code in its low 16 bits,
/// the primary code in the lowest 8: -2147221499 for a locked database (5). Its source is
/// "SQLite".
inline constexpr std::int32_t errorBase = -2147221504;

/// A refusal by the database `name` (as the user wrote it), as a sentence that says what to do.
/// `message` is SQLite's own. Memory that ran out is outOfMemory.
[[nodiscard]] Error errorOf(int code, std::u16string_view name, std::u16string_view message);

/// A refusal with a description of its own.
[[nodiscard]] Error errorWith(int code, std::u16string description);

} // namespace kvex::sqlite

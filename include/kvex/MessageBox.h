// The styles and answers of a message box, as IUtility::ShowMessageBox takes and gives them.
#pragma once

#include <cstdint>

namespace kvex::message_box {

/// The styles. They never change, and there are no others.
/// Yes and No: a question.
inline constexpr std::int32_t yesNo = 4;
/// OK and an exclamation mark: a warning.
inline constexpr std::int32_t exclamation = 48;

/// The answers: `ok` to a warning, `yes` or `no` to a question.
inline constexpr std::int32_t ok = 1;
inline constexpr std::int32_t yes = 6;
inline constexpr std::int32_t no = 7;

} // namespace kvex::message_box

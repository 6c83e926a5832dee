// The rows that head the lists of conditions: how the sentence of such a condition begins.
#pragma once

namespace kvex::condition_heading {

inline constexpr const char16_t *people = u"Where the message is from ";
inline constexpr const char16_t *accounts = u"Where the message is received through ";
inline constexpr const char16_t *words = u"Where the message contains the words ";

} // namespace kvex::condition_heading

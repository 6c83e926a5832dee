// How many short messages a text takes, as 3GPP TS 23.038 (alphabets) and 3GPP TS 23.040
// (concatenated messages) fix it.
//
// A text goes out in the GSM 7-bit default alphabet when that alphabet or its extension table has
// each of its characters. Otherwise the whole text goes out in UCS-2. The national language tables
// of TS 23.038 are left out, because a phone may lack them.
//
//   `GSM 7-bit  a unit is a septet       160 in one message, 153 in each of several`
//   `UCS-2      a unit is a UTF-16 unit   70 in one message,  67 in each of several`
//
// Each of several messages carries fewer units, because a header of 6 bytes joins them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvex::host {

enum class SmsAlphabet { gsm7, ucs2 };

struct SmsLength {
    SmsAlphabet alphabet;
    /// Septets or UTF-16 units. A character of the extension table takes two septets.
    std::size_t units;
    /// The number of short messages: 1 for a text that fits into one, even for an empty text. No
    /// character is split between two of them: neither the two septets of an extension character
    /// nor a surrogate pair.
    std::size_t parts;
    /// The first character that the GSM alphabet lacks; "" with gsm7. It can be a surrogate pair.
    std::u16string forcing;
};

[[nodiscard]] SmsLength smsLength(std::u16string_view text);

/// How many units of the alphabet fit into one short message that stands alone.
[[nodiscard]] std::size_t unitsOfOneSms(SmsAlphabet alphabet);

/// How many septets the character takes: 1 in the default alphabet, 2 in its extension table, 0 in
/// neither.
[[nodiscard]] std::size_t septetsOf(char16_t unit);

} // namespace kvex::host

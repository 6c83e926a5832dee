#include "adapters/classserver/GuidText.h"

#include <array>
#include <cstddef>

namespace kvex {
namespace {

/// Each x stands for a hexadecimal digit; all other characters are written as they are.
constexpr std::string_view form = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
constexpr std::string_view digits = "0123456789ABCDEF";

using Bytes = std::array<std::uint8_t, 16>;

template <class Integer> void putBigEndian(Bytes &bytes, std::size_t at, Integer number) {
    for (std::size_t i = sizeof number; i-- > 0; number = static_cast<Integer>(number >> 8)) {
        bytes[at + i] = static_cast<std::uint8_t>(number & 0xFF);
    }
}

template <class Integer> Integer bigEndian(const Bytes &bytes, std::size_t at) {
    Integer number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i) {
        number = static_cast<Integer>((number << 8) | bytes[at + i]);
    }
    return number;
}

std::size_t digitOf(char letter) {
    const bool isLower = letter >= 'a' && letter <= 'f';
    return digits.find(isLower ? static_cast<char>(letter - 'a' + 'A') : letter);
}

} // namespace

std::string guidText(const GUID &guid) {
    Bytes bytes{};
    putBigEndian(bytes, 0, guid.Data1);
    putBigEndian(bytes, 4, guid.Data2);
    putBigEndian(bytes, 6, guid.Data3);
    std::memcpy(&bytes[8], guid.Data4, sizeof guid.Data4);

    std::string text(form);
    std::size_t digit = 0;
    for (char &letter : text) {
        if (letter == 'x') {
            const unsigned byte = bytes[digit / 2];
            letter = digits[digit % 2 == 0 ? byte >> 4 : byte & 0xF];
            ++digit;
        }
    }
    return text;
}

std::optional<GUID> guidFromText(std::string_view text) noexcept {
    if (text.size() != form.size()) {
        return std::nullopt;
    }
    Bytes bytes{};
    std::size_t digit = 0;
    for (std::size_t at = 0; at < form.size(); ++at) {
        if (form[at] != 'x') {
            if (text[at] != form[at]) {
                return std::nullopt;
            }
            continue;
        }
        const std::size_t value = digitOf(text[at]);
        if (value == std::string_view::npos) {
            return std::nullopt;
        }
        std::uint8_t &byte = bytes[digit / 2];
        byte = static_cast<std::uint8_t>(std::size_t{byte} * 16 + value);
        ++digit;
    }
    GUID guid{bigEndian<std::uint32_t>(bytes, 0),
              bigEndian<std::uint16_t>(bytes, 4),
              bigEndian<std::uint16_t>(bytes, 6),
              {}};
    std::memcpy(guid.Data4, &bytes[8], sizeof guid.Data4);
    return guid;
}

} // namespace kvex

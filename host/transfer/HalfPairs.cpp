#include "host/transfer/HalfPairs.h"

#include "platform/Utf16.h"

#include <charconv>
#include <cstdint>

namespace kvex::host {
namespace {

constexpr std::size_t digits = 4;

} // namespace

bool hasHalfPair(std::u16string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = nextCharacter(text, at);
        if (isHighSurrogate(character) || isLowSurrogate(character)) {
            return true;
        }
    }
    return false;
}

std::string unitsInHexadecimal(std::u16string_view text) {
    constexpr std::string_view digit = "0123456789abcdef";
    std::string units;
    for (const char16_t unit : text) {
        units += units.empty() ? "" : " ";
        for (int shift = 12; shift >= 0; shift -= 4) {
            units += digit[(static_cast<unsigned>(unit) >> static_cast<unsigned>(shift)) & 0xFU];
        }
    }
    return units;
}

std::optional<std::u16string> textOfUnits(std::string_view hexadecimal) {
    std::u16string text;
    for (std::size_t at = 0; at == 0 || at < hexadecimal.size(); at += digits + 1) {
        const std::string_view unit = hexadecimal.substr(at, digits);
        std::uint16_t value = 0;
        const auto [end, error] =
            std::from_chars(unit.data(), unit.data() + unit.size(), value, 16);
        const bool isWhole = unit.size() == digits && error == std::errc() &&
                             end == unit.data() + digits && unit.front() != '-';
        const std::size_t next = at + digits;
        const bool isSeparated = next == hexadecimal.size() ||
                                 (hexadecimal[next] == ' ' && next + 1 < hexadecimal.size());
        if (!isWhole || !isSeparated) {
            return std::nullopt;
        }
        text.push_back(static_cast<char16_t>(value));
    }
    return text;
}

} // namespace kvex::host

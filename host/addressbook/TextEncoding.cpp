#include "host/addressbook/TextEncoding.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iconv.h>
#include <optional>
#include <stdexcept>

namespace kvex::host {
namespace {

constexpr std::string_view windows = "CP1252";
/// A byte that UTF-8 never has.
constexpr char unreadable = '\xFF';

/// One conversion into UTF-8.
class Converter {
public:
    explicit Converter(const std::string &from) : handle_(iconv_open("UTF-8", from.c_str())) {}
    ~Converter() {
        if (isKnown()) {
            iconv_close(handle_);
        }
    }
    Converter(const Converter &) = delete;
    Converter &operator=(const Converter &) = delete;

    [[nodiscard]] bool isKnown() const { return handle_ != noHandle(); }

    /// Converts up to the first character that it cannot read. Returns the count of bytes before
    /// it.
    std::size_t convert(std::string_view bytes, std::string &text) {
        std::array<char, 4096> room{};
        // The C library declares it writable but does not write to it.
        char *from =
            const_cast<char *>(bytes.data()); // NOLINT(cppcoreguidelines-pro-type-const-cast)
        std::size_t left = bytes.size();
        std::size_t result = 0;
        do {
            char *to = room.data();
            std::size_t free = room.size();
            result = iconv(handle_, &from, &left, &to, &free);
            text.append(room.data(), room.size() - free);
        } while (result == static_cast<std::size_t>(-1) && errno == E2BIG);
        return bytes.size() - left;
    }

private:
    // NOLINTNEXTLINE: the C library reports a failure with this value.
    static iconv_t noHandle() { return reinterpret_cast<iconv_t>(-1); }

    iconv_t handle_;
};

/// Returns nothing when the set is unknown or a byte is not valid in it.
std::optional<std::string> converted(std::string_view name, std::string_view bytes) {
    Converter converter{std::string(name)};
    std::string text;
    if (!converter.isKnown() || converter.convert(bytes, text) != bytes.size()) {
        return std::nullopt;
    }
    return text;
}

/// Invalid units, such as half of a character, become a byte that is not UTF-8.
std::string decodeUtf16(const std::string &name, std::string_view bytes) {
    Converter converter(name);
    std::string text;
    for (;;) {
        bytes.remove_prefix(converter.convert(bytes, text));
        if (bytes.empty()) {
            return text;
        }
        text += unreadable;
        bytes.remove_prefix(std::min<std::size_t>(2, bytes.size()));
    }
}

/// Guesses the UTF-16 encoding of bytes without a byte order mark; "" for other bytes. Digits and
/// separators have one zero byte each, always on the same side.
std::string utf16Without(std::string_view bytes) {
    std::array<std::size_t, 2> zeros{};
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        zeros.at(at % 2) += bytes[at] == '\0' ? 1 : 0;
    }
    const std::size_t enough = bytes.size() / 8;
    const auto outweighs = [&](std::size_t many, std::size_t few) {
        return many > 0 && many >= enough && many / 4 >= few;
    };
    if (outweighs(zeros[1], zeros[0])) {
        return "UTF-16LE";
    }
    return outweighs(zeros[0], zeros[1]) ? "UTF-16BE" : "";
}

bool holdsWellFormedCharacter(std::string_view text) {
    const std::u16string units = fromUtf8(text);
    return std::ranges::any_of(units,
                               [](char16_t unit) { return unit > 0x7F && unit != u'\uFFFD'; });
}

/// Returns nothing for bytes that are not UTF-16.
std::optional<std::string> decodeUtf16(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) {
        return decodeUtf16("UTF-16LE", bytes.substr(2));
    }
    if (bytes.starts_with("\xFE\xFF")) {
        return decodeUtf16("UTF-16BE", bytes.substr(2));
    }
    const std::string name = utf16Without(bytes);
    return name.empty() ? std::nullopt : std::optional(decodeUtf16(name, bytes));
}

DecodedText decodeBytes(std::string_view bytes) {
    constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
    const bool isMarked = bytes.starts_with(utf8Mark);
    const std::string_view text = bytes.substr(isMarked ? utf8Mark.size() : 0);
    if (!isMarked && !isUtf8(text) && !holdsWellFormedCharacter(text)) {
        if (std::optional<std::string> guess = converted(windows, text)) {
            return {std::move(*guess), true};
        }
    }
    return {std::string(text)};
}

} // namespace

DecodedText decodeText(std::string_view bytes) {
    std::optional<std::string> wide = decodeUtf16(bytes);
    DecodedText decoded = wide ? DecodedText{std::move(*wide)} : decodeBytes(bytes);
    if (decoded.text.find('\0') != std::string::npos) {
        throw std::invalid_argument("It is not text: it holds bytes of value 0.");
    }
    return decoded;
}

std::string decodeAs(std::string_view name, std::string_view bytes) {
    if (name.empty()) {
        return isUtf8(bytes) ? std::string(bytes) : decodeAs(windows, bytes);
    }
    const bool isPlain = std::ranges::all_of(name, [](char byte) {
        return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
               (byte >= 'a' && byte <= 'z') || byte == '-' || byte == '_';
    });
    if (!isPlain || !Converter{std::string(name)}.isKnown()) {
        throw std::invalid_argument("the character set is not known");
    }
    std::optional<std::string> text = converted(name, bytes);
    if (!text) {
        throw std::invalid_argument("the text is not valid in its character set");
    }
    return std::move(*text);
}

bool isUtf8(std::string_view text) {
    return toUtf8(fromUtf8(text)) == text;
}

} // namespace kvex::host

#include "host/check/SmsLength.h"

#include "platform/Utf16.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace kvex::host {
namespace {

/// The default alphabet from 0x00 to 0x7F, without the escape at 0x1B.
constexpr std::u16string_view defaultAlphabet = u"@£$¥èéùìòÇ\nØø\rÅå"
                                                u"Δ_ΦΓΛΩΠΨΣΘΞÆæßÉ"
                                                u" !\"#¤%&'()*+,-./0123456789:;<=>?"
                                                u"¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§"
                                                u"¿abcdefghijklmnopqrstuvwxyzäöñüà";
static_assert(defaultAlphabet.size() == 127);

/// The characters that an escape precedes. U+000C is the page break.
constexpr std::u16string_view extensionTable = u"\f^{}\\[~]|€";

constexpr std::size_t beyondTables = u'€' + 1;

constexpr auto septets = [] {
    std::array<std::uint8_t, beyondTables> table{};
    for (const char16_t unit : defaultAlphabet) {
        table[unit] = 1;
    }
    for (const char16_t unit : extensionTable) {
        table[unit] = 2;
    }
    return table;
}();

struct Capacity {
    std::size_t alone;
    std::size_t joined;
};

constexpr Capacity capacityOf(SmsAlphabet alphabet) {
    return alphabet == SmsAlphabet::gsm7 ? Capacity{160, 153} : Capacity{70, 67};
}

/// The character that begins at `at`; "" at the end of the text.
std::u16string_view characterAt(std::u16string_view text, std::size_t at) {
    const bool isPair =
        at + 1 < text.size() && isHighSurrogate(text[at]) && isLowSurrogate(text[at + 1]);
    return text.substr(at, isPair ? 2 : 1);
}

/// Adds up characters that are not to be split.
class Parts {
public:
    explicit Parts(Capacity capacity) : capacity_(capacity) {}

    void add(std::size_t units) {
        units_ += units;
        if (inPart_ + units > capacity_.joined) {
            ++parts_;
            inPart_ = 0;
        }
        inPart_ += units;
    }
    [[nodiscard]] std::size_t units() const { return units_; }
    [[nodiscard]] std::size_t count() const { return units_ <= capacity_.alone ? 1 : parts_; }

private:
    Capacity capacity_;
    std::size_t units_ = 0;
    std::size_t parts_ = 1;
    std::size_t inPart_ = 0;
};

} // namespace

std::size_t septetsOf(char16_t unit) {
    return unit < beyondTables ? septets[unit] : 0;
}

std::size_t unitsOfOneSms(SmsAlphabet alphabet) {
    return capacityOf(alphabet).alone;
}

SmsLength smsLength(std::u16string_view text) {
    const auto forcing =
        std::ranges::find_if(text, [](char16_t unit) { return septetsOf(unit) == 0; });
    const bool isGsm = forcing == text.end();
    const SmsAlphabet alphabet = isGsm ? SmsAlphabet::gsm7 : SmsAlphabet::ucs2;
    Parts parts(capacityOf(alphabet));
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = characterAt(text, at).size();
        parts.add(isGsm ? septetsOf(text[at]) : size);
        at += size;
    }
    const auto at = static_cast<std::size_t>(forcing - text.begin());
    return {alphabet, parts.units(), parts.count(), std::u16string(characterAt(text, at))};
}

} // namespace kvex::host

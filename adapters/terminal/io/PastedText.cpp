#include "adapters/terminal/io/PastedText.h"

#include "platform/Text.h"

#include <algorithm>

namespace kvex::terminal {
namespace {

bool isControl(char16_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

/// A cut may have split it.
std::string_view withoutLastCharacter(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto last = static_cast<unsigned char>(bytes.back());
        bytes.remove_suffix(1);
        const bool isContinuation = last >= 0x80 && last < 0xC0;
        if (!isContinuation) {
            break;
        }
    }
    return bytes;
}

} // namespace

std::size_t PastedText::take(std::string_view bytes) {
    std::size_t at = 0;
    while (at < bytes.size() && !isComplete()) {
        if (matched_ == 0) {
            const std::size_t next = std::min(bytes.find(end.front(), at), bytes.size());
            append(bytes.substr(at, next - at));
            at = next;
        }
        if (at < bytes.size() && bytes[at] == end[matched_]) {
            ++matched_;
            ++at;
        } else if (matched_ > 0) {
            append(end.substr(0, matched_));
            matched_ = 0;
        }
    }
    return at;
}

void PastedText::append(std::string_view bytes) {
    bytes_.append(bytes.substr(0, longest - std::min(longest, bytes_.size())));
}

std::u16string PastedText::text() const {
    std::string_view bytes = bytes_;
    if (bytes.size() == longest) {
        bytes = withoutLastCharacter(bytes);
    }
    const std::u16string units = fromUtf8(bytes);
    std::u16string result;
    result.reserve(units.size());
    for (std::size_t at = 0; at < units.size(); ++at) {
        const bool isSecond = units[at] == u'\n' && at > 0 && units[at - 1] == u'\r';
        if (isSecond) {
            continue;
        }
        if (units[at] == u'\r' || units[at] == u'\n') {
            result += u'\n';
        } else if (units[at] == u'\t' || !isControl(units[at])) {
            result += units[at];
        }
    }
    return result;
}

} // namespace kvex::terminal

#include "adapters/terminal/io/PartialCharacter.h"

#include "platform/Text.h"

namespace kvex::terminal {
namespace {

/// The number of bytes of the character that begins with this one; 0 if none does.
std::size_t lengthFrom(char byte) {
    const auto lead = static_cast<unsigned char>(byte);
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

} // namespace

std::optional<Typed> PartialCharacter::take(char byte) {
    if (!isContinuation(byte)) {
        hasAlt_ = hasAlt_ && bytes_.empty();
        bytes_.clear();
    }
    const bool isUseful = isContinuation(byte) ? !bytes_.empty() : lengthFrom(byte) > 0;
    if (!isUseful) {
        clear();
        return std::nullopt;
    }
    bytes_ += byte;
    if (bytes_.size() < lengthFrom(bytes_.front())) {
        return std::nullopt;
    }
    Typed typed{fromUtf8(bytes_), hasAlt_};
    const bool isBad = typed.cluster.front() == u'\uFFFD' && bytes_ != "\xEF\xBF\xBD";
    const bool isControl = typed.cluster.front() < 0xA0;
    clear();
    return isBad || isControl ? std::nullopt : std::optional(typed);
}

} // namespace kvex::terminal

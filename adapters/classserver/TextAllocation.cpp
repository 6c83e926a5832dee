// The texts that cross component boundaries. The length in bytes lies before the characters.
#include "kvex/ClassServer.h"

#include "platform/Text.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

using ByteCount = std::uint32_t;

char *blockOf(BSTR text) {
    return reinterpret_cast<char *>(text) - sizeof(ByteCount);
}

} // namespace

BSTR SysAllocStringLen(const char16_t *text, std::uint32_t length) noexcept {
    constexpr std::uint32_t longest =
        std::numeric_limits<ByteCount>::max() / std::uint32_t{sizeof(char16_t)};
    if (length > longest) {
        return nullptr;
    }
    const ByteCount bytes = length * ByteCount{sizeof(char16_t)};
    void *block = std::calloc(1, sizeof bytes + std::size_t{bytes} + sizeof(char16_t));
    if (block == nullptr) {
        return nullptr;
    }
    std::memcpy(block, &bytes, sizeof bytes);
    char *characters = static_cast<char *>(block) + sizeof bytes;
    if (text != nullptr) {
        std::memcpy(characters, text, bytes);
    }
    return reinterpret_cast<BSTR>(characters);
}

void SysFreeString(BSTR text) noexcept {
    if (text != nullptr) {
        std::free(blockOf(text));
    }
}

std::uint32_t SysStringLen(BSTR text) noexcept {
    if (text == nullptr) {
        return 0;
    }
    ByteCount bytes = 0;
    std::memcpy(&bytes, blockOf(text), sizeof bytes);
    return bytes / std::uint32_t{sizeof(char16_t)};
}

BSTR SysAllocUtf8(const char *text, std::uint32_t length) noexcept {
    try {
        const std::u16string units =
            kvex::fromUtf8(text == nullptr ? std::string_view() : std::string_view(text, length));
        return SysAllocStringLen(units.data(), static_cast<std::uint32_t>(units.size()));
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

std::uint32_t SysGetUtf8(BSTR text, char *target, std::uint32_t room) noexcept {
    try {
        const std::string bytes = kvex::toUtf8({text == nullptr ? u"" : text, SysStringLen(text)});
        if (bytes.size() <= room) {
            std::ranges::copy(bytes, target);
        }
        return static_cast<std::uint32_t>(bytes.size());
    } catch (const std::bad_alloc &) {
        return 0;
    }
}

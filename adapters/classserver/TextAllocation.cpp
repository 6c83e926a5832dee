// The texts that cross component boundaries. The length in bytes lies before the characters.
#include "kvex/Component.h"

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

#include "fuzz/Property.h"

#include "platform/Text.h"
#include "platform/VisibleText.h"

namespace kvex::fuzz {
namespace {

std::string quoted(std::u16string_view text) {
    return "\"" + toUtf8(visible(text)) + "\"";
}

[[noreturn]] void fail(std::string_view property, const std::string &shown) {
    throw BrokenProperty("PROPERTY does not hold: " + std::string(property) + ": " + shown);
}

} // namespace

void require(bool holds, std::string_view property, std::u16string_view shown) {
    if (!holds) {
        fail(property, quoted(shown));
    }
}

void requireEqual(std::u16string_view is, std::u16string_view expected, std::string_view property) {
    if (is != expected) {
        fail(property, quoted(is) + " instead of " + quoted(expected));
    }
}

} // namespace kvex::fuzz

#include "adapters/terminal/io/Terminal.h"

#include <charconv>
#include <cstdlib>
#include <langinfo.h>
#include <locale.h> // NOLINT: the standard's header lacks newlocale.

namespace kvex::terminal {
namespace {

std::string variable(const char *name) {
    const char *const value = std::getenv(name); // NOLINT: no thread of ours changes it.
    return value == nullptr ? std::string() : std::string(value);
}

/// The locale's name, by the order that the C library follows.
std::string localeName() {
    for (const char *const name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        std::string value = variable(name);
        if (!value.empty()) {
            return value;
        }
    }
    return {};
}

bool endsWithUtf8(const std::string &name) {
    const std::string charset = name.substr(0, name.find('@'));
    return charset.ends_with(".UTF-8") || charset.ends_with(".utf8") ||
           charset.ends_with(".utf-8") || charset.ends_with(".UTF8");
}

Characters charactersOfLocale() {
    const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
    if (locale == nullptr) {
        // Often ssh passes on the name of a locale that this machine lacks. The name still says
        // what the terminal shows.
        return endsWithUtf8(localeName()) ? Characters::unicode : Characters::ascii;
    }
    const std::string charset = nl_langinfo_l(CODESET, locale);
    freelocale(locale);
    return charset == "UTF-8" ? Characters::unicode : Characters::ascii;
}

std::chrono::milliseconds patienceOfUser() {
    const std::string text = variable("ESCDELAY");
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isUsable = read.ec == std::errc() && number > 0 && number <= 10000;
    return isUsable ? std::chrono::milliseconds(number) : Decoder::patience;
}

} // namespace

TerminalKind TerminalKind::ofEnvironment() {
    return {variable("TERM"), charactersOfLocale(), variable("NO_COLOR").empty(), patienceOfUser()};
}

} // namespace kvex::terminal

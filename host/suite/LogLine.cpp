#include "host/suite/LogLine.h"

#include "host/suite/Passwords.h"
#include "host/suite/VisibleText.h"
#include "platform/Text.h"

#include <iterator>

namespace kvex::host {
namespace {

/// As 2024-03-01T09:00:00+05:30.
std::string timestamp(std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    char buffer[64];
    std::string text(buffer,
                     std::strftime(buffer, std::size(buffer), "%Y-%m-%dT%H:%M:%S%z", &local));
    return text.insert(text.size() - 2, 1, ':');
}

std::string field(std::u16string_view text) {
    return toUtf8(visible(withoutPasswords(text)));
}

} // namespace

std::string logLine(std::time_t time, std::u16string_view text, const Error *error) {
    std::string line = timestamp(time) + '\t' + field(text);
    if (error != nullptr) {
        line += '\t' + std::to_string(error->number()) + '\t' + field(error->source()) + '\t' +
                field(error->description());
    }
    return line + '\n';
}

} // namespace kvex::host

#include "host/kvexrules/Failure.h"

#include "host/suite/Advice.h"
#include "platform/Text.h"

namespace kvex::host {

std::string asSentence(std::string_view text) {
    const std::size_t last = text.find_last_not_of(" \t\r\n");
    if (last == std::string_view::npos) {
        return {};
    }
    text = text.substr(0, last + 1);
    const bool hasEnd = std::string_view(".!?:;").find(text.back()) != std::string_view::npos;
    return std::string(text) + (hasEnd ? "" : ".");
}

std::string toldAtTerminal(const Error &error) {
    return asSentence(toUtf8(withAdvice(error, Place::terminal)));
}

std::string reasonAndLog(std::string_view reason, const std::filesystem::path &log) {
    return asSentence(reason) + (log.empty() ? "" : " The log is " + log.string() + ".");
}

} // namespace kvex::host

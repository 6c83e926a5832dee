// How a command ends when it cannot do its work, and the sentences that say why.
#pragma once

#include "platform/Error.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kvex::host {

/// The program's exit status.
namespace exit_status {
inline constexpr int done = 0;
/// Something was not found, or a request was refused; nothing is broken.
inline constexpr int refused = 1;
/// The command line was wrong, or nothing could be read.
inline constexpr int unusable = 2;
} // namespace exit_status

/// Ends the command. The sentences, in UTF-8, say what is wrong and what to do next.
class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string &sentences, int status = exit_status::unusable)
        : std::runtime_error(sentences), status_(status) {}
    [[nodiscard]] int status() const { return status_; }

private:
    int status_;
};

/// `text` with a full stop at its end, unless a punctuation mark stands there. "" stays "".
[[nodiscard]] std::string asSentence(std::string_view text);

/// The error's description as a sentence, followed by the advice.
[[nodiscard]] std::string toldAtTerminal(const Error &error);

/// `reason` as a sentence, then a sentence that names the log unless `log` is empty.
[[nodiscard]] std::string reasonAndLog(std::string_view reason, const std::filesystem::path &log);

} // namespace kvex::host

// How a command ends that cannot do what it was asked for.
#pragma once

#include <stdexcept>
#include <string>

namespace kvex::host {

/// The program's exit status.
namespace exit_status {
inline constexpr int done = 0;
/// Something asked for was not found, or a request was refused; nothing is broken.
inline constexpr int refused = 1;
/// Wrong use, or nothing could be read.
inline constexpr int unusable = 2;
} // namespace exit_status

/// Ends the command. The sentences say what is wrong and what to do next, in UTF-8.
class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string &sentences, int status = exit_status::unusable)
        : std::runtime_error(sentences), status_(status) {}
    [[nodiscard]] int status() const { return status_; }

private:
    int status_;
};

} // namespace kvex::host

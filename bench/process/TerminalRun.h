// Starts a program in a terminal of its own and waits for its first screen.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::bench {

struct FirstScreen {
    /// The time from before the start until the whole screen has arrived.
    double seconds;
    /// The resident memory of the process then.
    std::size_t bytes;
};

/// The terminal has 80 x 24 cells. `last` is what the program writes last of its screen. The
/// program is then killed. Throws when it ends before.
[[nodiscard]] FirstScreen firstScreen(const std::filesystem::path &program,
                                      std::vector<std::string> arguments, std::string_view last);

} // namespace kvex::bench

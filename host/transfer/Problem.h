// What is wrong with an import document.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kvex::host {

struct Problem {
    /// From 1.
    std::size_t line;
    /// In UTF-8, whole sentences.
    std::string sentences;
};

using Problems = std::vector<Problem>;

} // namespace kvex::host

// Texts as a new process takes its arguments and its environment.
#pragma once

#include <string>
#include <vector>

namespace kvex::test {

/// Into `texts`, and null behind the last.
[[nodiscard]] inline std::vector<char *> argumentPointers(std::vector<std::string> &texts) {
    std::vector<char *> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string &text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace kvex::test

// Texts in the form in which a new process takes its arguments and environment.
#pragma once

#include <string>
#include <vector>

namespace kvex::test {

/// Pointers into `texts`, followed by null.
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

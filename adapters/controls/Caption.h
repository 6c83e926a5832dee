// A caption's access key: "&New" shows "New" and has the key "N"; "&&" shows "&".
#pragma once

#include <string>
#include <string_view>

namespace kvex::controls {

struct Caption {
    std::u16string shown;
    /// As written in the caption; 0 for none. Of several keys the first counts.
    char16_t accessKey = 0;
};

[[nodiscard]] Caption parseCaption(std::u16string_view caption);

/// Whether `key` is the caption's access key, without regard to case.
[[nodiscard]] bool hasAccessKey(std::u16string_view caption, char16_t key);

} // namespace kvex::controls

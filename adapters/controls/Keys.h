// The keys that users press, and the access keys that captions name.
#pragma once

#include <string>
#include <string_view>

namespace kvex::controls {

/// The keys besides characters that a scripted user can press.
enum class Key {
    enter,
    escape,
    tab,
    shiftTab,
    space,
    backspace,
    deleteKey,
    up,
    down,
    home,
    end,
    cut,
    copy,
    paste,
    selectAll,
};

/// A caption marks its access key with "&": "&New" shows "New" and has the key "N". "&&" shows "&".
struct Caption {
    std::u16string shown;
    /// As the caption writes it; 0 if there is none. The first one counts.
    char16_t accessKey = 0;
};

[[nodiscard]] Caption parseCaption(std::u16string_view caption);

/// Whether `key` is the caption's access key, ignoring case.
[[nodiscard]] bool hasAccessKey(std::u16string_view caption, char16_t key);

} // namespace kvex::controls

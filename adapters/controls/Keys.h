// The keys that users press, and the access keys that captions name.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvex::controls {

/// The keys besides characters. "select" keys extend the selection, as their plain keys do with
/// Shift; "word" keys are the arrows with Ctrl.
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
    left,
    right,
    wordLeft,
    wordRight,
    home,
    end,
    pageUp,
    pageDown,
    /// Ctrl+Home and Ctrl+End.
    textStart,
    textEnd,
    /// Ctrl+Up and Ctrl+Down: go to another row of several and select nothing.
    goUp,
    goDown,
    selectUp,
    selectDown,
    selectLeft,
    selectRight,
    selectWordLeft,
    selectWordRight,
    selectHome,
    selectEnd,
    selectAll,
    /// Ctrl+Space: selects or deselects one row of several.
    toggleRow,
    cut,
    copy,
    paste,
    /// F1: the window shows the keys.
    help,
    /// F2: the next character is an access key.
    accessKey,
    /// Ctrl+Z.
    suspend,
};

/// The key that moves as this one does and does not select; the key itself if it selects nothing.
[[nodiscard]] Key withoutShift(Key key);

/// A caption marks its access key with "&": "&New" shows "New" and has the key "N". "&&" shows "&".
struct Caption {
    std::u16string shown;
    /// As the caption writes it; 0 if there is none. The first one counts.
    char16_t accessKey = 0;
    /// Where the access key stands in `shown`.
    std::size_t accessKeyAt = 0;
};

[[nodiscard]] Caption parseCaption(std::u16string_view caption);

/// Whether `key` is the caption's access key, ignoring case.
[[nodiscard]] bool hasAccessKey(std::u16string_view caption, char16_t key);

} // namespace kvex::controls

// The keys that scripted users of windows press.
#pragma once

namespace kvex::controls {

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

} // namespace kvex::controls

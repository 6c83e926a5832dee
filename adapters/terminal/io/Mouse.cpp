#include "adapters/terminal/io/Mouse.h"

namespace kvex::terminal {

std::optional<MouseEvent> Mouse::press(int buttons, Point at, Time now) {
    using enum MouseEvent::Kind;
    constexpr int wheel = 64;
    constexpr int others = 3 | 32 | 128;
    if (at.column < 0 || at.row < 0) {
        return std::nullopt;
    }
    if ((buttons & wheel) != 0) {
        const int direction = buttons & 3;
        if (direction > 1) {
            return std::nullopt;
        }
        return MouseEvent{direction == 0 ? wheelUp : wheelDown, at};
    }
    if ((buttons & others) != 0) {
        return std::nullopt;
    }
    if (lastPress_ == at && now - lastPressTime_ <= doubleClickTime) {
        lastPress_.reset();
        return MouseEvent{doubleClick, at};
    }
    lastPress_ = at;
    lastPressTime_ = now;
    return MouseEvent{MouseEvent::Kind::press, at};
}

} // namespace kvex::terminal

// Keys that type.
#pragma once

#include <QKeyEvent>

namespace kvex::qt {

/// Whether the key event types its text, rather than commanding something.
[[nodiscard]] inline bool isTyping(const QKeyEvent &event) {
    const auto held = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool commands = held == Qt::ControlModifier || held == Qt::AltModifier;
    const bool isControl =
        event.text().isEmpty() || event.text().front().category() == QChar::Other_Control;
    return !isControl && !commands;
}

} // namespace kvex::qt

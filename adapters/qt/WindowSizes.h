// The sizes that the user gave the windows: kept in a file of the user's own state folder.
#pragma once

#include <QSize>
#include <QString>

#include <optional>

namespace kvex::qt {

/// The file is kvex/windows.ini in $XDG_STATE_HOME, else in ~/.local/state. Where it cannot be
/// read, no size is remembered; where it cannot be written, none will be. Several processes may
/// write at once: of each window the last size stays.
[[nodiscard]] std::optional<QSize> rememberedSize(const QString &window);
void rememberSize(const QString &window, QSize size);

} // namespace kvex::qt

#include "adapters/qt/WindowSizes.h"

#include <QDir>
#include <QSettings>

namespace kvex::qt {
namespace {

/// Empty where there is no folder of the user's.
QString stateFile() {
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    const QString home = qEnvironmentVariable("HOME");
    if (QDir::isAbsolutePath(state)) {
        return state + QStringLiteral("/kvex/windows.ini");
    }
    return QDir::isAbsolutePath(home) ? home + QStringLiteral("/.local/state/kvex/windows.ini")
                                      : QString();
}

QString keyOf(const QString &window) {
    return QStringLiteral("sizes/") + window;
}

} // namespace

std::optional<QSize> rememberedSize(const QString &window) {
    const QString file = stateFile();
    if (file.isEmpty()) {
        return {};
    }
    const QSize size = QSettings(file, QSettings::IniFormat).value(keyOf(window)).toSize();
    return size.isEmpty() ? std::nullopt : std::optional(size);
}

void rememberSize(const QString &window, QSize size) {
    if (const QString file = stateFile(); !file.isEmpty()) {
        QSettings(file, QSettings::IniFormat).setValue(keyOf(window), size);
    }
}

} // namespace kvex::qt

#include "adapters/qt/DisplayProbe.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>

#include <algorithm>

namespace kvex::qt {
namespace {

QStringList candidates() {
    const QString named = qEnvironmentVariable("QT_QPA_PLATFORM");
    if (!named.isEmpty()) {
        return named.split(u';', Qt::SkipEmptyParts);
    }
    const QString x11 = QStringLiteral("xcb");
    const QString wayland = QStringLiteral("wayland");
    return qEnvironmentVariable("XDG_SESSION_TYPE") == wayland ? QStringList{wayland, x11}
                                                               : QStringList{x11, wayland};
}

/// Whether the plug-in is for `platform` and everything that it needs is there.
bool isPluginFor(const QString &platform, const QString &file) {
    QPluginLoader plugin(file);
    const QJsonArray keys =
        plugin.metaData().value(u"MetaData").toObject().value(u"Keys").toArray();
    const bool isFor = std::any_of(keys.begin(), keys.end(), [&platform](const auto &key) {
        return key.toString().compare(platform, Qt::CaseInsensitive) == 0;
    });
    return isFor && plugin.load();
}

bool hasPlugin(const QString &platform) {
    QStringList directories{qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH")};
    for (const QString &path : QCoreApplication::libraryPaths()) {
        directories += path + QStringLiteral("/platforms");
    }
    for (const QString &directory : directories) {
        const QFileInfoList files =
            directory.isEmpty() ? QFileInfoList() : QDir(directory).entryInfoList(QDir::Files);
        if (std::any_of(files.begin(), files.end(), [&platform](const QFileInfo &file) {
                return QLibrary::isLibrary(file.fileName()) &&
                       isPluginFor(platform, file.absoluteFilePath());
            })) {
            return true;
        }
    }
    return false;
}

/// Null where no server answers.
std::shared_ptr<void> connectToX11() {
    QLibrary xcb(QStringLiteral("xcb"), 1);
    using Connect = void *(*)(const char *, int *);
    using HasError = int (*)(void *);
    using Disconnect = void (*)(void *);
    const auto connect = reinterpret_cast<Connect>(xcb.resolve("xcb_connect"));
    const auto hasError = reinterpret_cast<HasError>(xcb.resolve("xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<Disconnect>(xcb.resolve("xcb_disconnect"));
    if (connect == nullptr || hasError == nullptr || disconnect == nullptr) {
        return nullptr;
    }
    // What failed is disconnected, too.
    std::shared_ptr<void> connection(connect(nullptr, nullptr), disconnect);
    return hasError(connection.get()) == 0 ? connection : nullptr;
}

/// Null where no server answers.
std::shared_ptr<void> connectToWayland() {
    QLibrary wayland(QStringLiteral("wayland-client"), 0);
    using Connect = void *(*)(const char *);
    using Disconnect = void (*)(void *);
    const auto connect = reinterpret_cast<Connect>(wayland.resolve("wl_display_connect"));
    const auto disconnect = reinterpret_cast<Disconnect>(wayland.resolve("wl_display_disconnect"));
    void *const display = connect != nullptr && disconnect != nullptr ? connect(nullptr) : nullptr;
    return display != nullptr ? std::shared_ptr<void>(display, disconnect) : nullptr;
}

std::optional<UsablePlatform> tryPlatform(const QString &candidate) {
    const QString platform = candidate.section(u':', 0, 0);
    if (!hasPlugin(platform)) {
        return std::nullopt;
    }
    UsablePlatform usable{candidate.toStdString(), nullptr};
    const bool isWayland = platform.startsWith(u"wayland");
    if (isWayland || platform == u"xcb") {
        usable.connection = isWayland ? connectToWayland() : connectToX11();
        return usable.connection != nullptr ? std::optional(usable) : std::nullopt;
    }
    // What needs no server is taken at its word.
    return usable;
}

} // namespace

std::optional<UsablePlatform> usablePlatform() {
    for (const QString &candidate : candidates()) {
        if (auto usable = tryPlatform(candidate)) {
            return usable;
        }
    }
    return std::nullopt;
}

} // namespace kvex::qt

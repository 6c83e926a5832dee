#include "adapters/qt/QtApplication.h"

#include "adapters/qt/ReadableStyle.h"
#include "platform/Error.h"
#include "platform/OwnerThread.h"

#include <QApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QThread>

#include <algorithm>
#include <array>
#include <cerrno>
#include <clocale>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kvex::qt {
namespace {

// Qt ends the process if it cannot show windows. So the code below finds out before it starts Qt.

struct UsablePlatform {
    /// The platform plug-in with its parameters.
    std::string name;
    /// The connection to the display server, if there is one. Keep it until Qt has its own. A
    /// server may reset when its only client leaves, and refuse new clients for a moment.
    std::shared_ptr<void> connection;
};

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

/// Whether the file is a plug-in for `platform` and can be loaded with all its libraries.
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

/// Null if no server answers.
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
    // A failed connection must be closed too.
    std::shared_ptr<void> connection(connect(nullptr, nullptr), disconnect);
    return hasError(connection.get()) == 0 ? connection : nullptr;
}

/// Null if no server answers.
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
    // A platform without a server needs no further check.
    return usable;
}

/// Without a named display, Wayland's library would try one that another session of the user may
/// have, on a screen that this user does not see.
bool namesDisplay() {
    constexpr std::array variables{"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
    return std::any_of(variables.begin(), variables.end(),
                       [](const char *variable) { return !qEnvironmentVariableIsEmpty(variable); });
}

/// The first platform that can show windows: from QT_QPA_PLATFORM, or else those of desktops.
std::optional<UsablePlatform> usablePlatform() {
    if (!namesDisplay()) {
        return std::nullopt;
    }
    for (const QString &candidate : candidates()) {
        if (auto usable = tryPlatform(candidate)) {
            return usable;
        }
    }
    return std::nullopt;
}

/// Looks for a platform, and keeps its connection until Qt has one.
class PlatformSearch {
public:
    std::optional<UsablePlatform> find() {
        const std::lock_guard lock(mutex_);
        found_ = usablePlatform();
        return found_;
    }
    void forget() {
        const std::lock_guard lock(mutex_);
        found_.reset();
    }

private:
    std::mutex mutex_;
    std::optional<UsablePlatform> found_;
};

PlatformSearch &platformSearch() {
    static PlatformSearch search;
    return search;
}

constexpr std::u16string_view withoutWindows = u"This program runs without windows.";

std::u16string noDisplay() {
    return namesDisplay() ? u"There is no display that can be reached. Start the program in a "
                            u"graphical session, or set DISPLAY."
                          : u"There is no display (neither $DISPLAY nor $WAYLAND_DISPLAY is set). "
                            u"Start the program in a graphical session or over ssh -X.";
}

[[noreturn]] void refuse(std::u16string_view why) {
    throw Error(error_number::cannotCreateObject,
                u"No window can be shown. " + std::u16string(why));
}

/// The thread that showed the first window. Nothing before that.
std::optional<OwnerThread> &windowsThread() {
    static std::optional<OwnerThread> thread;
    return thread;
}

[[noreturn]] void refuseThread() {
    const std::u16string owner = windowsThread()
                                     ? windowsThread()->text() + u". It showed the first window"
                                     : std::u16string(u"the thread that made its QApplication");
    throw Error(error_number::invalidCall, u"No window can be shown from " + OwnerThread().text() +
                                               u". The windows of this program belong to " + owner +
                                               u". Call from there.");
}

/// Qt refers to the arguments as long as the application lives.
struct Arguments {
    std::string program = program_invocation_name;
    std::string option = "-platform";
    std::string platform;
    std::array<char *, 4> values{};
    int count = 3;
};

void createApplication(std::string platform) {
    auto &arguments = *new Arguments;
    arguments.platform = std::move(platform);
    arguments.values = {arguments.program.data(), arguments.option.data(),
                        arguments.platform.data(), nullptr};
    // Qt sets the user's locale for the process. It needs that for characters, because keyboards
    // depend on it. Everything else, such as numbers, must still be read and printed as before.
    const std::string before = std::setlocale(LC_ALL, nullptr);
    static auto *const application = new QApplication(arguments.count, arguments.values.data());
    const std::string characters = std::setlocale(LC_CTYPE, nullptr);
    std::setlocale(LC_ALL, before.c_str());
    std::setlocale(LC_CTYPE, characters.c_str());
    if (application->style()->name() == u"fusion") {
        QApplication::setStyle(new ReadableStyle(application->style()->name()));
    }
    // The host continues after its windows are closed.
    application->setQuitOnLastWindowClosed(false);
}

} // namespace

std::u16string obstacleToWindows() {
    const QCoreApplication *existing = QCoreApplication::instance();
    if (existing == nullptr) {
        return platformSearch().find() ? std::u16string() : noDisplay();
    }
    return dynamic_cast<const QApplication *>(existing) != nullptr ? std::u16string()
                                                                   : std::u16string(withoutWindows);
}

void requireApplication() {
    const QCoreApplication *existing = QCoreApplication::instance();
    if (existing == nullptr) {
        const auto platform = platformSearch().find();
        if (!platform) {
            refuse(noDisplay());
        }
        createApplication(platform->name);
        platformSearch().forget();
        windowsThread().emplace();
        return;
    }
    if (dynamic_cast<const QApplication *>(existing) == nullptr) {
        refuse(withoutWindows);
    }
    if (existing->thread() != QThread::currentThread()) {
        refuseThread();
    }
}

QWidget *windowToShowOver() {
    QWidget *modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

} // namespace kvex::qt

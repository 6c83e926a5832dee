#include "host/suite/UserFolders.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace kvex::host {
namespace {

std::filesystem::path absoluteFrom(const char *text) {
    std::filesystem::path path = text == nullptr ? "" : text;
    return path.is_absolute() ? path : std::filesystem::path();
}

std::filesystem::path homeFolder() {
    if (std::filesystem::path home = absoluteFrom(std::getenv("HOME")); !home.empty()) {
        return home;
    }
    const passwd *user = getpwuid(geteuid());
    return absoluteFrom(user == nullptr ? nullptr : user->pw_dir);
}

std::filesystem::path suiteFolder(const char *variable, const char *belowHome) {
    std::filesystem::path base = absoluteFrom(std::getenv(variable));
    if (base.empty()) {
        const std::filesystem::path home = homeFolder();
        if (home.empty()) {
            return {};
        }
        base = home / belowHome;
    }
    return base / "kvex";
}

} // namespace

std::filesystem::path stateFolder() {
    return suiteFolder("XDG_STATE_HOME", ".local/state");
}
std::filesystem::path dataFolder() {
    return suiteFolder("XDG_DATA_HOME", ".local/share");
}
std::filesystem::path configurationFolder() {
    return suiteFolder("XDG_CONFIG_HOME", ".config");
}

} // namespace kvex::host

#include "host/suite/UserFolders.h"

#include <cerrno>
#include <cstdlib>
#include <sys/stat.h>

namespace kvex::host {
namespace {

/// Empty when the variable is not an absolute path.
std::filesystem::path folderIn(const char *variable) {
    const char *value = ::secure_getenv(variable);
    const std::filesystem::path path = value == nullptr ? "" : value;
    return path.is_absolute() ? path : std::filesystem::path();
}

std::filesystem::path suiteFolder(const char *variable, const char *belowHome) {
    if (const std::filesystem::path base = folderIn(variable); !base.empty()) {
        return base / "kvex";
    }
    const std::filesystem::path home = folderIn("HOME");
    return home.empty() ? home : home / belowHome / "kvex";
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

std::error_code makeOwnFolder(const std::filesystem::path &folder) {
    std::error_code failure;
    if (std::filesystem::is_directory(folder, failure)) {
        return {};
    }
    if (folder.has_relative_path() && folder.has_parent_path()) {
        failure = makeOwnFolder(folder.parent_path());
        if (failure) {
            return failure;
        }
    }
    // Another program may have created it meanwhile.
    if (mkdir(folder.c_str(), S_IRWXU) != 0 && !std::filesystem::is_directory(folder)) {
        return {errno, std::generic_category()};
    }
    return {};
}

} // namespace kvex::host

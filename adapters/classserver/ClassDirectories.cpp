#include "adapters/classserver/ClassDirectories.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace kvex {
namespace {

std::string_view variable(const char *name) {
    const char *value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::filesystem::path classesIn(const std::filesystem::path &dataDirectory) {
    return dataDirectory / "kvex" / "classes";
}

} // namespace

std::optional<std::filesystem::path> userClassDirectory() {
    if (const std::filesystem::path data = variable("XDG_DATA_HOME"); data.is_absolute()) {
        return classesIn(data);
    }
    if (const std::filesystem::path home = variable("HOME"); home.is_absolute()) {
        return classesIn(home / ".local" / "share");
    }
    return std::nullopt;
}

std::vector<std::filesystem::path> classDirectories() {
    std::vector<std::filesystem::path> directories;
    if (auto user = userClassDirectory()) {
        directories.push_back(*std::move(user));
    }
    std::string_view rest = variable("XDG_DATA_DIRS");
    if (rest.empty()) {
        rest = "/usr/local/share:/usr/share";
    }
    while (!rest.empty()) {
        const std::string_view item = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(item.size() + 1, rest.size()));
        if (const std::filesystem::path data = item; data.is_absolute()) {
            directories.push_back(classesIn(data));
        }
    }
    return directories;
}

} // namespace kvex

#include "tests/servers/ServerFolder.h"

#include <cstdlib>
#include <fstream>
#include <pwd.h>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace kvex::test {
namespace {

namespace fs = std::filesystem;

void giveTo(const ServerUser &owner, const fs::path &path) {
    if (lchown(path.c_str(), owner.user, owner.group) != 0) {
        throw std::runtime_error("cannot give away " + path.string());
    }
}

} // namespace

std::optional<ServerUser> ServerUser::instead() {
    if (geteuid() != 0) {
        return std::nullopt;
    }
    const passwd *nobody = getpwnam("nobody");
    if (!nobody) {
        throw std::runtime_error("there is no user nobody to run the server as");
    }
    return ServerUser{nobody->pw_uid, nobody->pw_gid};
}

ServerFolder::ServerFolder() {
    std::string pattern = fs::temp_directory_path() / "kvex-server-XXXXXX";
    if (!mkdtemp(pattern.data())) {
        throw std::runtime_error("no temporary folder " + pattern);
    }
    path_ = pattern;
    handOver();
}

ServerFolder::~ServerFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void ServerFolder::write(const char *name, std::string_view text) const {
    const fs::path file = path_ / name;
    std::ofstream stream(file, std::ios::binary);
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    if (!(stream << text << std::flush)) {
        throw std::runtime_error("cannot write " + file.string());
    }
    if (const auto owner = ServerUser::instead()) {
        giveTo(*owner, file);
    }
}

void ServerFolder::handOver() const {
    if (const auto owner = ServerUser::instead()) {
        giveTo(*owner, path_);
        for (const auto &entry : fs::recursive_directory_iterator(path_)) {
            giveTo(*owner, entry.path());
        }
    }
}

} // namespace kvex::test

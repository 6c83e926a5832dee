#include "tests/servers/ServerFolder.h"

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <pwd.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kvex::test {
namespace {

namespace fs = std::filesystem;

void giveTo(const ServerUser &owner, const fs::path &path) {
    if (lchown(path.c_str(), owner.user, owner.group) != 0) {
        throw std::runtime_error("cannot change the owner of " + path.string());
    }
}

/// Waits until every process has closed the other end of the pipe, then removes the folder.
[[noreturn]] void keep(const fs::path &folder, int pipe) {
    // Signals that end the test program must not end this process.
    setsid();
    for (const int deadly : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        static_cast<void>(signal(deadly, SIG_IGN));
    }
    dup2(pipe, STDIN_FILENO);
    close_range(STDIN_FILENO + 1, ~0U, 0);
    char ignored = 0;
    while (read(STDIN_FILENO, &ignored, 1) > 0) {
    }
    // A dying server may still write, so a failed removal is repeated.
    constexpr int attempts = 500;
    constexpr std::chrono::milliseconds pause{20};
    std::error_code error;
    for (int attempt = 0; attempt < attempts && fs::exists(folder, error); ++attempt) {
        fs::remove_all(folder, error);
        if (error) {
            std::this_thread::sleep_for(pause);
        }
    }
    _exit(0);
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
        throw std::runtime_error("cannot create the temporary folder " + pattern);
    }
    path_ = pattern;
    startKeeper();
    handOver();
}

ServerFolder::~ServerFolder() {
    close(keepersPipe_);
    waitpid(keeper_, nullptr, 0);
}

void ServerFolder::startKeeper() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error(
            "cannot create a pipe for the process that removes a temporary folder");
    }
    keeper_ = fork();
    if (keeper_ == 0) {
        keep(path_, ends[0]);
    }
    close(ends[0]);
    keepersPipe_ = ends[1];
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

// A server's folder, and the user who runs the server.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/types.h>

namespace kvex::test {

/// Database servers refuse to run as root, so a test that root runs starts them as nobody.
struct ServerUser {
    uid_t user;
    gid_t group;

    /// Empty when the user who runs the test also runs the server.
    [[nodiscard]] static std::optional<ServerUser> instead();
};

/// A temporary folder that belongs to the server's user. It is removed with the object, or when the
/// test program ends, even by a crash.
class ServerFolder {
public:
    ServerFolder();
    ~ServerFolder();
    ServerFolder(const ServerFolder &) = delete;
    ServerFolder &operator=(const ServerFolder &) = delete;

    [[nodiscard]] const std::filesystem::path &path() const { return path_; }
    [[nodiscard]] std::filesystem::path operator/(const char *name) const { return path_ / name; }
    /// Writes a file that only the server's user can read.
    void write(const char *name, std::string_view text) const;
    /// Gives everything below the folder to the server's user.
    void handOver() const;

private:
    void startKeeper();

    std::filesystem::path path_;
    /// A process that removes the folder when this end of its pipe is closed.
    pid_t keeper_ = -1;
    int keepersPipe_ = -1;
};

} // namespace kvex::test

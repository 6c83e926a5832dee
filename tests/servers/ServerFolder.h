// A server's folder, and the user that the server runs as.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/types.h>

namespace kvex::test {

/// Database servers refuse to run as the superuser: started by him, they run as nobody.
struct ServerUser {
    uid_t user;
    gid_t group;

    /// Nothing when the server runs as whoever runs the test.
    [[nodiscard]] static std::optional<ServerUser> instead();
};

/// A temporary folder that belongs to the server's user; it goes with the object, or with the test
/// program, however that ends.
class ServerFolder {
public:
    ServerFolder();
    ~ServerFolder();
    ServerFolder(const ServerFolder &) = delete;
    ServerFolder &operator=(const ServerFolder &) = delete;

    [[nodiscard]] const std::filesystem::path &path() const { return path_; }
    [[nodiscard]] std::filesystem::path operator/(const char *name) const { return path_ / name; }
    /// A file that the server's user alone can read.
    void write(const char *name, std::string_view text) const;
    /// Everything below the folder belongs to the server's user from now on.
    void handOver() const;

private:
    void startKeeper();

    std::filesystem::path path_;
    /// A process that removes the folder when this end of its pipe is closed.
    pid_t keeper_ = -1;
    int keepersPipe_ = -1;
};

} // namespace kvex::test

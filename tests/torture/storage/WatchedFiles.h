// SQLite's files in the hands of a test: it sees each operation first, and can make it fail.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace kvex::torture {

enum class FileCall {
    open,
    read,
    write,
    truncate,
    sync,
    size,
    lock,
    mapShared,
    lockShared,
    remove,
    exists
};

struct FileOperation {
    FileCall call;
    /// The path; "" for a temporary file of SQLite's own.
    std::string_view file;
    /// Where a read or write begins; the new size for truncate.
    std::int64_t offset = 0;
    /// What a write writes.
    std::string_view content{};
    /// True for a sync or a removal that also makes the removals in the folder safe.
    bool syncsFolder = false;
};

struct Answer {
    /// SQLITE_OK lets the operation happen; any other code becomes its result.
    int code = SQLITE_OK;
    /// How many bytes a write that fails has written before.
    std::size_t written = 0;
};

/// While it lives, every new connection of SQLite in this process uses these files. They are real
/// ones, but nothing is ever synced to the disk: a test does not cut the machine's power. SQLite
/// does not wait for a lock. The ends of locks are not asked for, since no system refuses them.
class WatchedFiles {
public:
    using Watch = std::function<Answer(const FileOperation &)>;

    explicit WatchedFiles(Watch watch);
    ~WatchedFiles();
    WatchedFiles(const WatchedFiles &) = delete;
    WatchedFiles &operator=(const WatchedFiles &) = delete;

    [[nodiscard]] Answer ask(const FileOperation &operation) const { return watch_(operation); }
    [[nodiscard]] sqlite3_vfs &real() const { return real_; }

private:
    Watch watch_;
    sqlite3_vfs &real_;
    sqlite3_vfs watched_;
};

} // namespace kvex::torture

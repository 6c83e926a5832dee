// Takes rights from this process, or sets limits to it, while an object lives.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <sys/resource.h>

namespace kvex::test {

enum class FolderRights : std::uint16_t { write = 0777, read = 0555 };
enum class FileRights : std::uint16_t { write = 0666, read = 0444, none = 0 };

/// Limits the rights on a file and its folder. Root may do everything, so the process becomes an
/// ordinary user meanwhile.
class WithoutRights {
public:
    WithoutRights(const std::filesystem::path &folder, const std::filesystem::path &file,
                  FolderRights folderRights, FileRights fileRights = FileRights::read);
    ~WithoutRights();
    WithoutRights(const WithoutRights &) = delete;
    WithoutRights &operator=(const WithoutRights &) = delete;

private:
    std::filesystem::path folder_;
    uid_t user_;
};

/// A write that would make a file longer than `bytes` fails.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

} // namespace kvex::test

// Where benchmarks keep their files.
#pragma once

#include <filesystem>

namespace kvex::bench {

/// On the disk of the system's temporary files, or in memory: there synchronising costs nothing,
/// so that what the program itself costs shows.
enum class Place { disk, memory };

/// A folder that is removed with its contents.
class BenchFolder {
public:
    explicit BenchFolder(Place place);
    ~BenchFolder();
    BenchFolder(const BenchFolder &) = delete;
    BenchFolder &operator=(const BenchFolder &) = delete;

    [[nodiscard]] const std::filesystem::path &path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace kvex::bench

// What SQLite does to its files during one session, in order.
#pragma once

#include "tests/torture/storage/Scenarios.h"
#include "tests/torture/storage/WatchedFiles.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kvex::torture {

/// The contents of the files in a folder, by name.
using Disk = std::map<std::string, std::string>;

[[nodiscard]] Disk diskOf(const std::filesystem::path &folder);
/// Makes the folder hold these files and no others.
void writeDisk(const Disk &disk, const std::filesystem::path &folder);

/// A write, truncation, sync or removal.
struct Step {
    FileCall call;
    std::string file;
    std::int64_t offset;
    std::string content;
    bool syncsFolder;
};

struct Recording {
    Disk before;
    std::vector<Step> steps;
    /// How many steps were done when the button was pressed, and when it had stored everything.
    std::size_t pressed = 0;
    std::size_t stored = 0;
};

/// Plays the scenario on the database "rules.db" in the folder.
[[nodiscard]] Recording record(const Scenario &scenario, const std::filesystem::path &folder);

} // namespace kvex::torture

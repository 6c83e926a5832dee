// Folders for the files of benchmarks, and SQLite files with the server's tables and a rule set.
#pragma once

#include "bench/support/SqliteApi.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace kvex::bench {

/// On the disk of the system's temporary files, or in memory. In memory, synchronising costs
/// nothing, so only the program's own costs are measured.
enum class Place { disk, memory };

/// The destructor removes the folder with its contents.
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

/// An SQLite file with a rule set of a given size, in a folder of its own. It also has the users,
/// accounts, services and commands that the rules refer to.
class RuleDatabase {
public:
    RuleDatabase(std::size_t rules, Place place);

    [[nodiscard]] std::string file() const { return (folder_.path() / "rules.db").string(); }
    [[nodiscard]] std::u16string connectionString() const;
    void execute(const char *statements) const {
        bench::execute(openSqlite(file()).get(), statements);
    }

private:
    BenchFolder folder_;
};

/// The database of this size, for benchmarks that only read. The first call makes it.
[[nodiscard]] const RuleDatabase &readOnlyDatabase(std::size_t rules);

} // namespace kvex::bench

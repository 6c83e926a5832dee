// SQLite databases for tests: in a file and in memory.
#pragma once

#include "tests/recordset/DatabaseFixture.h"

#include <filesystem>
#include <memory>
#include <string>

struct sqlite3;

namespace kvex::test {

/// A folder that goes with the object.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    [[nodiscard]] const std::filesystem::path &path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// Another program's connection to an SQLite database.
class OtherProgram {
public:
    /// Creates the file if there is none.
    explicit OtherProgram(const std::string &name);

    void run(std::u16string_view statement);
    [[nodiscard]] std::u16string valueOf(std::u16string_view query);

private:
    struct Closer {
        void operator()(sqlite3 *handle) const noexcept;
    };
    std::unique_ptr<sqlite3, Closer> handle_;
};

[[nodiscard]] DatabaseKind sqliteFile();
[[nodiscard]] DatabaseKind sqliteMemory();

} // namespace kvex::test

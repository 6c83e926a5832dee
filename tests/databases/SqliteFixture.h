// SQLite databases for tests: in a file and in memory.
#pragma once

#include "tests/databases/DatabaseFixture.h"
#include "tests/host/TemporaryFolder.h"

#include <memory>
#include <string>

struct sqlite3;

namespace kvex::test {

using host::TemporaryFolder;

/// Another program's connection to an SQLite database.
class OtherProgram {
public:
    /// Creates the file if there is none.
    explicit OtherProgram(const std::string &name);

    void run(std::u16string_view statement);
    /// See DatabaseFixture.
    [[nodiscard]] std::vector<std::u16string> rows(std::u16string_view query);
    [[nodiscard]] std::u16string valueOf(std::u16string_view query);

private:
    struct Closer {
        void operator()(sqlite3 *handle) const noexcept;
    };
    std::unique_ptr<sqlite3, Closer> handle_;
};

class SqliteFixture : public DatabaseFixture {
public:
    /// Creates a new file.
    SqliteFixture();
    /// Creates a database in memory, under this URI.
    explicit SqliteFixture(const std::string &uri);

    [[nodiscard]] recordset::Provider provider() const override;
    [[nodiscard]] std::u16string connectionString() const override;
    void run(std::u16string_view statement) override { other_.run(statement); }
    [[nodiscard]] std::vector<std::u16string> rows(std::u16string_view query) override {
        return other_.rows(query);
    }
    void refuse(std::u16string_view event, std::u16string_view condition) override;
    void permit() override;

private:
    std::unique_ptr<TemporaryFolder> folder_;
    std::string name_;
    OtherProgram other_;
};

[[nodiscard]] DatabaseKind sqliteFile();
[[nodiscard]] DatabaseKind sqliteMemory();

} // namespace kvex::test

// The program on each kind of database: an SQLite file, PostgreSQL and MariaDB.
#pragma once

#include "tests/process/KvexrulesTest.h"
#include "tests/servers/DatabaseServer.h"

#include <string>
#include <vector>

namespace kvex::process {

struct AnyKind {
    const char *name;
    /// Null for SQLite.
    test::DatabaseServer &(*server)();
};

/// Each test has an empty database, which $KVEX_DATABASE names.
class AnyDatabase : public KvexrulesTest, public testing::WithParamInterface<AnyKind> {
protected:
    AnyDatabase();
    ~AnyDatabase() override;

    [[nodiscard]] static bool isFile() { return GetParam().server == nullptr; }
    /// Runs statements as another program.
    void run(const std::string &statements) const;
    /// The rows of a query, with "|" between columns. NULL reads as "".
    [[nodiscard]] std::vector<std::string> rows(const std::string &query) const;
    /// The first of them; "NONE" when there is none.
    [[nodiscard]] std::string valueOf(const std::string &query) const;
    /// All rows of the six tables.
    [[nodiscard]] std::vector<std::string> content() const;
    /// The same of a backup.
    [[nodiscard]] static std::vector<std::string> contentOf(const std::filesystem::path &file);
    /// The backups in the user's state folder.
    [[nodiscard]] std::vector<std::filesystem::path> keptBackups() const;

    static constexpr const char *name = "rules";
};

[[nodiscard]] std::vector<AnyKind> anyKinds();

/// Names the tests after the kind of database.
inline const auto anyKindName = [](const auto &kind) { return std::string(kind.param.name); };

} // namespace kvex::process

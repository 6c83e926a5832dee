// An SQLite file of the server's schema with a rule set of a given size.
#pragma once

#include "bench/support/BenchFolder.h"
#include "bench/support/SqliteApi.h"

#include <cstddef>
#include <string>

namespace kvex::bench {

/// Lives in a folder of its own. The users, accounts, services and commands that the rules name
/// are in it, too.
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

/// One of each size, for benchmarks that only read; made when it is first wanted.
[[nodiscard]] const RuleDatabase &readOnlyDatabase(std::size_t rules);

} // namespace kvex::bench

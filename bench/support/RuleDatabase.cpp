#include "bench/support/RuleDatabase.h"

#include "bench/support/RuleSet.h"
#include "platform/Text.h"
#include "tests/databases/SqliteSchema.h"

#include <cstdlib>
#include <map>
#include <stdexcept>

namespace kvex::bench {
namespace {

std::filesystem::path parentFor(Place place) {
    return place == Place::memory ? "/dev/shm" : std::filesystem::temp_directory_path();
}

void addRules(sqlite3 *database, std::size_t count) {
    const SqliteQuery insertion = prepared(
        database, "INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE) VALUES "
                  "(?, ?, ?, ?, ?)");
    RuleSet rules;
    for (; count > 0; --count) {
        const RuleRow rule = rules.next();
        const std::string texts[]{toUtf8(rule.name), toUtf8(rule.queryParam),
                                  toUtf8(rule.actionParam)};
        int parameter = 0;
        for (const std::string &text : texts) {
            bindText(insertion.get(), ++parameter, text);
        }
        bindNumber(insertion.get(), ++parameter, std::int64_t{rule.priority});
        bindNumber(insertion.get(), ++parameter, std::int64_t{rule.active});
        run(insertion.get());
    }
}

/// Adds rows with ids and names. Each row has the same `rest`.
void addNamed(sqlite3 *database, int count, const std::string &table, const std::string &columns,
              const std::string &rest) {
    execute(database, ("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                       std::to_string(count) + ") INSERT INTO " + table + " (ID, NAME" + columns +
                       ") SELECT i, '" + table + " ' || i" + rest + " FROM n")
                          .c_str());
}

} // namespace

BenchFolder::BenchFolder(Place place) {
    std::string name = (parentFor(place) / "kvex-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot create a folder for the benchmarks' files: " + name);
    }
    path_ = name;
}

BenchFolder::~BenchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

RuleDatabase::RuleDatabase(std::size_t rules, Place place) : folder_(place) {
    test::createSqliteSchema(connectionString());
    const SqliteHandle database = openSqlite(file());
    bench::execute(database.get(), "BEGIN");
    addNamed(database.get(), userCount, "SMS_USERS", "", "");
    addNamed(database.get(), accountCount, "SMS_ACCOUNT", ", BIND_MODE", ", 'TRANSCEIVER'");
    addNamed(database.get(), serviceCount, "SMS_SERVICE", "", "");
    addNamed(database.get(), commandCount, "SMS_SERVICECOMMANDS", ", SERVICE_ID",
             ", i % " + std::to_string(serviceCount) + " + 1");
    addRules(database.get(), rules);
    bench::execute(database.get(), "COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
}

std::u16string RuleDatabase::connectionString() const {
    return u"Provider=SQLite;Data Source=" + fromUtf8(file());
}

const RuleDatabase &readOnlyDatabase(std::size_t rules) {
    static std::map<std::size_t, RuleDatabase> databases;
    return databases.try_emplace(rules, rules, Place::memory).first->second;
}

} // namespace kvex::bench

#include "tests/process/AnyDatabase.h"

#include "tests/servers/MariaDbServer.h"
#include "tests/servers/PostgreSqlServer.h"

#include <cstdlib>
#include <sstream>

namespace kvex::process {
namespace {

test::DatabaseServer &postgreSql() {
    return test::PostgreSqlServer::shared();
}

test::DatabaseServer &mariaDb() {
    return test::MariaDbServer::shared();
}

const std::vector<std::string> contentQueries{
    "SELECT ID, Name, QueryParam, ActionParam, PRIORITY, ACTIVE, DELETED FROM SMS_RULES ORDER BY "
    "ID",
    "SELECT ID, NAME, DELETED FROM SMS_USERS ORDER BY ID",
    "SELECT ID, NAME, BIND_MODE, DELETED FROM SMS_ACCOUNT ORDER BY ID",
    "SELECT ID, NAME, DELETED, DISABLED FROM SMS_SERVICE ORDER BY ID",
    "SELECT ID, SERVICE_ID, NAME FROM SMS_SERVICECOMMANDS ORDER BY ID",
    "SELECT ID, USER_ID, NAME, MOBILE, DELETED FROM SMS_CONTACTS ORDER BY ID"};

std::vector<std::string> lines(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// One line for each row, as the servers' clients give it.
std::string asOneLine(std::string row) {
    for (std::size_t at = 0; (at = row.find("\r\n", at)) != std::string::npos;) {
        row.replace(at, 2, "<CRLF>");
    }
    for (std::size_t at = 0; (at = row.find("NULL", at)) != std::string::npos;) {
        row.erase(at, 4);
    }
    return row;
}

} // namespace

AnyDatabase::AnyDatabase() {
    if (isFile()) {
        return;
    }
    GetParam().server().createDatabase(name);
    environment["KVEX_DATABASE"] = GetParam().server().odbcConnectionString(name);
    // Passes on the sanitizer's options. Its leak check crashes when a driver manager has unloaded
    // a database's driver.
    if (const char *options = std::getenv("ASAN_OPTIONS")) {
        environment["ASAN_OPTIONS"] = std::string(options) + ":detect_leaks=0";
    }
}

AnyDatabase::~AnyDatabase() {
    if (!isFile()) {
        GetParam().server().dropDatabase(name);
    }
}

void AnyDatabase::run(const std::string &statements) const {
    if (isFile()) {
        const Outcome outcome = process::run(
            "/usr/bin/sqlite3", {"-cmd", ".timeout 20000", database.string(), statements}, {}, "/");
        EXPECT_EQ(outcome.errors, "");
    } else {
        GetParam().server().run(name, statements);
    }
}

std::vector<std::string> AnyDatabase::rows(const std::string &query) const {
    if (isFile()) {
        return lines(asOneLine(sqlite3(database, query)));
    }
    std::vector<std::string> found = GetParam().server().rows(name, query);
    for (std::string &row : found) {
        row = asOneLine(row);
    }
    return found;
}

std::string AnyDatabase::valueOf(const std::string &query) const {
    const std::vector<std::string> found = rows(query);
    return found.empty() ? "NONE" : found.front();
}

std::vector<std::string> AnyDatabase::content() const {
    std::vector<std::string> content;
    for (const std::string &query : contentQueries) {
        const std::vector<std::string> found = rows(query);
        content.insert(content.end(), found.begin(), found.end());
    }
    return content;
}

std::vector<std::string> AnyDatabase::contentOf(const std::filesystem::path &file) {
    std::vector<std::string> content;
    for (const std::string &query : contentQueries) {
        const std::vector<std::string> found = lines(asOneLine(sqlite3(file, query)));
        content.insert(content.end(), found.begin(), found.end());
    }
    return content;
}

std::vector<std::filesystem::path> AnyDatabase::keptBackups() const {
    std::vector<std::filesystem::path> files;
    std::error_code none;
    for (const auto &entry :
         std::filesystem::directory_iterator(folder / "home/.local/state/kvex/backups", none)) {
        files.push_back(entry.path());
    }
    return files;
}

std::vector<AnyKind> anyKinds() {
    return {{"SqliteFile", nullptr}, {"PostgreSql", &postgreSql}, {"MariaDb", &mariaDb}};
}

} // namespace kvex::process

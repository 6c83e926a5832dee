// The program's settings: database, user and log.
#pragma once

#include "host/kvexrules/CommandLine.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

/// The content of a configuration file: lines of "key = value" with the keys database, user and
/// log. Blank lines, lines that begin with "#", and blanks around keys and values are ignored.
struct Configuration {
    std::optional<std::string> database;
    std::optional<std::string> user;
    std::optional<std::string> log;
};

/// Raises a Failure that names `file` and the line. The reasons are an unknown key, a key that is
/// set twice, a key without a value, and a line without "=".
[[nodiscard]] Configuration parseConfiguration(std::string_view text,
                                               const std::filesystem::path &file);

struct Settings {
    /// A connection string, or the path of a SQLite file.
    std::string database;
    /// A sentence that says where its name came from: "The database was named by --database."
    std::string databaseOrigin;
    /// True when it is the user's own database, because no other was named.
    bool isOwnDatabase = false;
    std::string user;
    /// Absolute; empty when none was chosen.
    std::filesystem::path log;
};

/// Each setting comes from the first of these that has it:
/// - the request's options,
/// - $KVEX_DATABASE, for the database,
/// - the user's configuration file kvexrules.conf,
/// - the defaults: the user's own database, and user 1.
///
/// Raises a Failure when the configuration file cannot be read, the database is a URL, or the user
/// is not a number. Raises one as well when no database is named and there is no home directory.
[[nodiscard]] Settings settingsFor(const Request &request);

/// Raises a Failure when the chosen log cannot be written.
void requireWritableLog(const Settings &settings);

} // namespace kvex::host

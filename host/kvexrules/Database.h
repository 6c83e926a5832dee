// The database that the settings name: opening it, making its tables, offering to make it.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Settings.h"
#include "platform/Error.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

/// Opens the database. Fails as Connection::open does.
[[nodiscard]] std::unique_ptr<recordset::ClientConnection> openConnection(const Settings &settings);

/// The same, for a command that only reads. Tells the user when the tables are newer than this
/// program.
[[nodiscard]] std::unique_ptr<recordset::ClientConnection> openToRead(const Settings &settings);

/// Ends a command because the database reported `error`. The Failure also says where the database's
/// name came from.
[[noreturn]] void failFor(const Settings &settings, const Error &error,
                          int status = exit_status::unusable);

/// Opens the database; raises a Failure when that fails.
[[nodiscard]] std::unique_ptr<recordset::ClientConnection> openOrFail(const Settings &settings);

/// Ends a command because it was refused: by the database, or because of something else that the
/// user named.
[[noreturn]] void failRefused(const Settings &settings, const Error &error);

/// Runs a part of a command and returns what it gives. Raises a Failure with the status `refused`
/// for its Error.
template <class Part> auto doOrFail(const Settings &settings, const Part &part) {
    try {
        return part();
    } catch (const Error &error) {
        failRefused(settings, error);
    }
}

enum class Content { empty, sample };

/// Creates the tables that the database lacks, and fills them with sample data if `content` says
/// so. Creates a missing SQLite file, and its folder if the database is the user's own. Only their
/// owner can use the new file and folder.
///
/// Returns the database's name without passwords. Raises a Failure for `empty` when no table is
/// missing; it says what an upgrade would do with older tables. Raises one for `sample` when a
/// table has a row already. Raises one as well when the database cannot be opened, belongs to
/// another program, or refuses.
[[nodiscard]] std::string makeDatabase(const Settings &settings, Content content);

/// The path of the SQLite file that `settings` name, if nothing is there.
[[nodiscard]] std::optional<std::string> missingFile(const Settings &settings);

/// Asks the user a question. Returns nothing when the user cannot be asked.
using Question = std::function<std::optional<bool>(std::string_view text)>;

/// If the database's file is missing, asks whether to make it, and makes it without rules after a
/// "yes". Does nothing when the user cannot be asked. Raises a Failure when the user declines, and
/// when the database cannot be made.
void offerDatabase(const Settings &settings, const Question &ask);

} // namespace kvex::host

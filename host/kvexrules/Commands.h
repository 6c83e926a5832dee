// The table of commands. Each row stands beside the function that runs it, in NAMECommand.cpp.
#pragma once

#include "host/kvexrules/Command.h"

#include <span>

namespace kvex::host {

using CommandTable = std::span<const Command *const>;

extern const Command editCommand;
extern const Command listCommand;
extern const Command showCommand;
extern const Command checkCommand;
extern const Command enableCommand;
extern const Command disableCommand;
extern const Command moveCommand;
extern const Command copyCommand;
extern const Command renameCommand;
extern const Command removeCommand;
extern const Command usersCommand;
extern const Command accountsCommand;
extern const Command exportCommand;
extern const Command importCommand;
extern const Command tryCommand;
extern const Command contactsImportCommand;
extern const Command contactsExportCommand;
extern const Command contactsRemoveCommand;
extern const Command contactsListCommand;
extern const Command initCommand;
extern const Command upgradeCommand;
extern const Command backupCommand;
extern const Command restoreCommand;
extern const Command registerCommand;
extern const Command unregisterCommand;
extern const Command helpCommand;
extern const Command versionCommand;

/// All commands in the order of the help. Without a word the program runs the first of them.
[[nodiscard]] CommandTable commands();

} // namespace kvex::host

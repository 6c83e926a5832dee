#include "host/kvexrules/Commands.h"

#include <array>

namespace kvex::host {

CommandTable commands() {
    static constexpr std::array table{
        &editCommand,
        &listCommand,
        &showCommand,
        &checkCommand,
        &tryCommand,
        &enableCommand,
        &disableCommand,
        &moveCommand,
        &copyCommand,
        &renameCommand,
        &removeCommand,
        &exportCommand,
        &importCommand,
        &usersCommand,
        &accountsCommand,
        &contactsImportCommand,
        &contactsExportCommand,
        &contactsRemoveCommand,
        &contactsListCommand,
        &initCommand,
        &upgradeCommand,
        &backupCommand,
        &restoreCommand,
        &registerCommand,
        &unregisterCommand,
        &helpCommand,
        &versionCommand,
    };
    return table;
}

} // namespace kvex::host

#include "host/kvexrules/Commands.h"

#include <array>

namespace kvex::host {

CommandTable commands() {
    static constexpr std::array table{
        &editCommand,           &listCommand,           &showCommand,
        &checkCommand,          &contactsImportCommand, &contactsExportCommand,
        &contactsRemoveCommand, &contactsListCommand,   &initCommand,
        &upgradeCommand,        &backupCommand,         &restoreCommand,
        &registerCommand,       &unregisterCommand,     &helpCommand,
        &versionCommand,
    };
    return table;
}

} // namespace kvex::host

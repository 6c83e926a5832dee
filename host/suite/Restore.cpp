#include "host/suite/Restore.h"

#include "host/suite/Backup.h"
#include "host/suite/DriverTransaction.h"
#include "host/suite/SchemaUpgrade.h"
#include "host/suite/TableDifference.h"
#include "host/suite/UserFolders.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <list>
#include <memory>
#include <optional>

namespace kvex::host {
namespace {

using recordset::ClientConnection;
using recordset::Driver;

[[noreturn]] void refuse(const std::u16string &why) {
    throw Error(error_number::badArgument, why + u" Nothing was changed.");
}

/// A backup, opened. One of older tables is copied and upgraded.
class OpenBackup {
public:
    OpenBackup(const std::filesystem::path &file, const SchemaState &wanted,
               std::span<const SchemaStep> steps)
        : connection_(opened(file)) {
        const std::u16string name = visible(fromUtf8(file.native()));
        const SchemaState state = schemaState(driver(), steps);
        if (driver().columnsOf(serverTables().front().name).empty()) {
            refuse(u"The file " + name + u" is no backup: it has no table SMS_RULES.");
        }
        if (state.age == SchemaAge::newer) {
            refuse(u"The backup " + name + u" has version " + toText(state.version) +
                   u" of the tables, which this program does not know. Restore it with the program "
                   u"that made it.");
        }
        if (state.version > wanted.version && wanted.age == SchemaAge::older) {
            refuse(u"The backup " + name + u" has version " + toText(state.version) +
                   u" of the tables, and the database has an older one. Run kvexrules upgrade "
                   u"first.");
        }
        if (state.age == SchemaAge::older && state.version < wanted.version) {
            upgradeCopy(file, wanted, steps);
        }
    }

    [[nodiscard]] Driver &driver() const { return *connection_->driver().lock(); }

private:
    static std::unique_ptr<ClientConnection> opened(const std::filesystem::path &file) {
        try {
            return openFile(file);
        } catch (const Error &error) {
            refuse(u"The backup cannot be read. " + error.description());
        }
    }

    void upgradeCopy(const std::filesystem::path &file, const SchemaState &wanted,
                     std::span<const SchemaStep> steps) {
        copy_.emplace(temporaryFolder() / file.filename(), Existing::replace);
        driver().copyTo(copy_->path());
        connection_ = openFile(copy_->path());
        const auto needed = std::ranges::count_if(
            steps, [&](const SchemaStep &step) { return step.version <= wanted.version; });
        upgradeSchema(
            driver(), [] {}, steps.first(static_cast<std::size_t>(needed)));
    }

    /// A folder that only this user can read.
    static std::filesystem::path temporaryFolder() {
        std::filesystem::path folder = stateFolder();
        if (folder.empty() || makeOwnFolder(folder)) {
            refuse(u"There is no folder for a copy of the older backup, because the state folder "
                   u"cannot be made. Set HOME, then run the command again.");
        }
        return folder;
    }

    /// Removed after the connection has closed.
    std::optional<NewFile> copy_;
    std::unique_ptr<ClientConnection> connection_;
};

/// The tables that the backup has.
std::vector<const Table *> tablesIn(Driver &backup) {
    std::vector<const Table *> tables;
    for (const Table &table : serverTables()) {
        if (!backup.columnsOf(table.name).empty()) {
            tables.push_back(&table);
        }
    }
    return tables;
}

} // namespace

std::vector<RestoredTable> restore(ClientConnection &target, const std::filesystem::path &backup,
                                   const std::function<void()> &keep,
                                   std::span<const SchemaStep> steps) {
    target.database().lock()->requireWritable();
    const std::shared_ptr<Driver> driver = target.driver().lock();
    if (driver->columnsOf(serverTables().front().name).empty()) {
        refuse(u"The database has no table SMS_RULES. Make the tables with kvexrules init.");
    }
    const SchemaState state = schemaState(*driver, steps);
    const OpenBackup source(backup, state, steps);
    const std::vector<const Table *> tables = tablesIn(source.driver());

    std::vector<std::u16string_view> names;
    names.reserve(tables.size());
    for (const Table *table : tables) {
        names.push_back(table->name);
    }
    DriverTransaction transaction(*driver);
    driver->beginAlone(names);
    std::list<TableDifference> differences;
    for (const Table *table : tables) {
        differences.emplace_back(*table, source.driver(), *driver);
        differences.back().requireReadable(source.driver());
    }
    if (!std::ranges::all_of(differences, &TableDifference::isEmpty)) {
        keep();
    }
    // Rows that others refer to go last.
    std::for_each(differences.rbegin(), differences.rend(),
                  [&](const TableDifference &difference) { difference.removeSurplus(*driver); });
    std::vector<RestoredTable> restored;
    for (const TableDifference &difference : differences) {
        difference.write(*driver);
        const Table &table = difference.table();
        const bool isWritten = !difference.isEmpty();
        if (isWritten && !TableDifference(table, source.driver(), *driver).isEmpty()) {
            refuse(u"The database does not keep a value of the backup's table " +
                   std::u16string(table.name) + u" as it is.");
        }
        driver->continueNumbering(table.name, u"ID");
        restored.push_back(
            {table.name, difference.added(), difference.changed(), difference.removed()});
    }
    transaction.commit();
    return restored;
}

} // namespace kvex::host

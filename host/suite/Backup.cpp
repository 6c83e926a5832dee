#include "host/suite/Backup.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "adapters/recordset/RowStatements.h"
#include "adapters/recordset/SchemaVersion.h"
#include "host/suite/Databases.h"
#include "host/suite/DriverTransaction.h"
#include "host/suite/Schema.h"
#include "host/suite/UserFolders.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <string>
#include <vector>

namespace kvex::host {
namespace {

using recordset::Driver;

/// The file as a connection string; a bare path could be read as something else.
std::u16string connectionStringOf(const std::filesystem::path &file) {
    std::u16string quoted;
    for (const char16_t unit : fromUtf8(std::filesystem::absolute(file).native())) {
        quoted.append(unit == u'}' ? 2 : 1, unit);
    }
    return u"Provider=SQLite;Data Source={" + quoted + u"}";
}

std::u16string inQuotes(std::u16string_view name) {
    std::u16string quoted = u"\"";
    for (const char16_t unit : name) {
        quoted.append(unit == u'"' ? 2 : 1, unit);
    }
    return quoted + u'"';
}

/// Inserts each row of a query into a table of another database.
class RowCopier final : public recordset::RowSink {
public:
    RowCopier(Driver &target, const Table &table) : target_(target), table_(table) {}

    void columns(std::vector<recordset::Column> /*columns*/) override {}
    void null() override { add(Null()); }
    void integer(std::int64_t number) override { add(number); }
    void number(double number) override { add(number); }
    void text(std::u16string_view text) override { add(std::u16string(text)); }
    void utf8(std::string_view text) override { add(fromUtf8(text)); }

private:
    void add(Value value) {
        row_.push_back(std::move(value));
        if (row_.size() < table_.columns.size()) {
            return;
        }
        std::vector<recordset::Assignment> values;
        for (std::size_t i = 0; i < row_.size(); ++i) {
            values.push_back({table_.columns[i].name, viewOf(row_[i])});
        }
        target_.execute(recordset::insertRow(table_.name, values, u"DEFAULT VALUES"));
        row_.clear();
    }

    static ValueView viewOf(const Value &value) {
        return std::visit([](const auto &held) { return ValueView(ValueView::Held(held)); }, value);
    }

    Driver &target_;
    const Table &table_;
    std::vector<Value> row_;
};

/// The table as the copy gets it: our columns as we make them, all others without a type. `names`
/// holds the names of the others.
Table copyOf(const Table &table, const std::vector<std::u16string> &present,
             std::vector<std::u16string> &names) {
    Table copy{table.name, {}};
    names.reserve(present.size());
    for (const std::u16string &name : present) {
        const auto ours = std::ranges::find_if(table.columns, [&](const TableColumn &column) {
            return recordset::equalIgnoringCase(column.name, name);
        });
        if (ours != table.columns.end()) {
            copy.columns.push_back(*ours);
        } else {
            copy.columns.push_back({names.emplace_back(inQuotes(name)), nullptr, u""});
        }
    }
    return copy;
}

void copyTables(Driver &source, Driver &target) {
    const Snapshot snapshot(source);
    DriverTransaction writing(target);
    target.begin();
    bool isEmpty = true;
    for (const Table &table : serverTables()) {
        const std::vector<std::u16string> present = source.columnsOf(table.name);
        if (present.empty()) {
            continue;
        }
        isEmpty = false;
        std::vector<std::u16string> names;
        const Table copy = copyOf(table, present, names);
        target.execute({creation(copy, target.columnTypes()), {}});
        RowCopier rows(target, copy);
        source.query({u"SELECT * FROM " + std::u16string(table.name), {}}, rows);
    }
    if (isEmpty) {
        throw Error(error_number::badArgument,
                    u"The database has none of the server's tables, so there is nothing to back "
                    u"up. Name another database.");
    }
    if (const auto version = recordset::schemaVersion(source)) {
        makeVersionTable(target);
        addVersion(target, *version);
    }
    writing.commit();
}

/// "20240301-090000" in UTC.
std::string timeStamp() {
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &utc)};
}

/// SQLite opens names in UTF-8, and takes the files beside a name for parts of its database.
void requireFreeName(const std::filesystem::path &file) {
    if (toUtf8(fromUtf8(file.native())) != file.native()) {
        throw Error(error_number::badArgument,
                    visible(fromUtf8(file.native())) + u" is no name in UTF-8. Name another file.");
    }
    for (const std::string_view ending : besideDatabase) {
        if (std::filesystem::exists(file.native() + std::string(ending))) {
            throw Error(error_number::badArgument,
                        visible(fromUtf8(file.native())) +
                            u" belongs to a database that is open, or was not closed. Name another "
                            u"file.");
        }
    }
}

} // namespace

void backUp(recordset::ClientConnection &connection, const std::filesystem::path &file,
            Existing existing) {
    requireFreeName(file);
    NewFile made(file, existing);
    const std::shared_ptr<Driver> source = connection.driver().lock();
    if (!source->copyTo(made.path())) {
        const auto target = openOrMakeDatabase(connectionStringOf(made.path()));
        copyTables(*source, *target->driver().lock());
    }
    made.keep();
}

std::filesystem::path keepBackup(recordset::ClientConnection &connection, std::string_view reason) {
    const std::filesystem::path state = stateFolder();
    if (state.empty()) {
        throw Error(error_number::badArgument,
                    u"There is no folder for a backup, because HOME is not set. Set it, then run "
                    u"the command again.");
    }
    const std::filesystem::path folder = state / "backups";
    if (const std::error_code failure = makeOwnFolder(folder)) {
        throw Error(error_number::badArgument, u"The folder " + fromUtf8(folder.native()) +
                                                   u" for a backup cannot be made (" +
                                                   fromUtf8(failure.message()) + u").");
    }
    const std::string name = timeStamp() + "-before-" + std::string(reason);
    std::filesystem::path file = folder / (name + ".db");
    for (int number = 2; std::filesystem::exists(file); ++number) {
        file = folder / (name + "-" + std::to_string(number) + ".db");
    }
    backUp(connection, file, Existing::refuse);
    return file;
}

std::unique_ptr<recordset::ClientConnection> openFile(const std::filesystem::path &file) {
    return openDatabase(connectionStringOf(file));
}

} // namespace kvex::host

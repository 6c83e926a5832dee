#include "adapters/sqlite/Provider.h"

#include "adapters/sqlite/ConnectionSettings.h"
#include "adapters/sqlite/SqliteDriver.h"

namespace kvex::sqlite {
namespace {

template <Database::Missing missing>
std::unique_ptr<recordset::Driver> connect(const recordset::ConnectionString &text) {
    return std::make_unique<SqliteDriver>(openDatabase(text, missing));
}

constexpr std::u16string_view form = u"Provider=SQLite;Data Source=PATH, or as the PATH alone";

} // namespace

recordset::Provider provider() {
    return {form, &namesSqlite, &connect<Database::Missing::refuse>};
}

recordset::Provider creatingProvider() {
    return {form, &namesSqlite, &connect<Database::Missing::create>};
}

} // namespace kvex::sqlite

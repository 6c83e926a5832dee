#include "adapters/sqlite/DatabaseCopy.h"

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteError.h"
#include "platform/Text.h"

#include <sqlite3.h>

#include <memory>

namespace kvex::sqlite {
namespace {

struct Closer {
    void operator()(sqlite3 *handle) const noexcept { sqlite3_close(handle); }
};

} // namespace

void copyDatabase(const SqliteConnection &source, const std::string &file) {
    const auto require = [&](int code) {
        if (code != SQLITE_OK && code != SQLITE_DONE) {
            throw errorOf(code, fromUtf8(file), fromUtf8(sqlite3_errstr(code)));
        }
    };
    sqlite3 *opened = nullptr;
    const int code = sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, Closer> target(opened);
    require(code);
    sqlite3_backup *copying = sqlite3_backup_init(opened, "main", source.handle(), "main");
    if (copying == nullptr) {
        require(sqlite3_extended_errcode(opened));
        return;
    }
    // All pages in one step: between two steps, a change of the source would begin the copy anew.
    int step = SQLITE_OK;
    do {
        step = sqlite3_backup_step(copying, -1);
    } while (step == SQLITE_OK);
    const int finished = sqlite3_backup_finish(copying);
    require(step);
    require(finished);
}

} // namespace kvex::sqlite

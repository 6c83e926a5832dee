// A connection to an SQLite database and record sets on it.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "adapters/sqlite/Provider.h"
#include "adapters/sqlite/SqliteError.h"
#include "platform/Error.h"
#include "tests/support/RaisedError.h"

#include <memory>
#include <string_view>

namespace kvex::test {

class SqliteSession {
public:
    explicit SqliteSession(std::u16string_view connectionString) {
        connection().open(connectionString);
    }

    [[nodiscard]] Connection &connection() { return connection_; }
    [[nodiscard]] std::unique_ptr<Recordset>
    records(std::u16string_view query = u"SELECT * FROM SMS_RULES ORDER BY ID") {
        std::unique_ptr<Recordset> opened = std::make_unique<recordset::ClientRecordset>();
        opened->open(query, connection_, CursorType::dynamic, LockType::optimistic);
        return opened;
    }

private:
    recordset::ClientConnection connection_{{sqlite::provider()}};
};

/// The error of `call`: SQLite's primary result code and the description. The code is 0 when there
/// is no error.
struct Refusal {
    int code = 0;
    std::u16string description;
    HelpContext context = HelpContext::none;

    [[nodiscard]] bool says(std::u16string_view words) const {
        return description.find(words) != std::u16string::npos;
    }
};

template <class Call> [[nodiscard]] Refusal refusalOf(Call call) {
    const auto error = raisedBy(call);
    return error ? Refusal{(error->number() - sqlite::errorBase) & 0xFF, error->description(),
                           error->helpContext()}
                 : Refusal();
}

} // namespace kvex::test

// The values of a statement's "?", bound and never written into its text.
#pragma once

#include "adapters/odbc/Handles.h"
#include "platform/Value.h"

#include <deque>
#include <string>
#include <vector>

namespace kvex::odbc {

/// Holds what the driver reads when the statement runs: lives as long as that.
class Parameters {
public:
    void bind(const Handle<SQL_HANDLE_STMT> &statement, const std::vector<ValueView> &values);

private:
    struct Held {
        std::int64_t integer = 0;
        double number = 0;
        std::u16string text;
        SQLLEN length = SQL_NULL_DATA;
    };

    std::deque<Held> held_;
};

} // namespace kvex::odbc

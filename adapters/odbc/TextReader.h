// Reads texts that are not bound, whatever their length.
#pragma once

#include "adapters/odbc/Handles.h"

#include <optional>
#include <string>
#include <string_view>

namespace kvex::odbc {

/// One buffer serves all texts.
class TextReader {
public:
    /// The column of the current row, whole, in pieces where it is long; nothing for Null. The
    /// view is valid until the next call.
    std::optional<std::u16string_view> read(const Handle<SQL_HANDLE_STMT> &row,
                                            SQLUSMALLINT column);

private:
    std::u16string buffer_ = std::u16string(2048, u'\0');
};

} // namespace kvex::odbc

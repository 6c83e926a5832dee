#include "adapters/odbc/TextReader.h"

namespace kvex::odbc {

std::optional<std::u16string_view> TextReader::read(const Handle<SQL_HANDLE_STMT> &row,
                                                    SQLUSMALLINT column) {
    std::size_t read = 0;
    for (;;) {
        const std::size_t room = buffer_.size() - read;
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(row.get(), column, SQL_C_WCHAR, buffer_.data() + read,
                                            static_cast<SQLLEN>(room * sizeof(char16_t)), &length);
        if (result == SQL_NO_DATA) {
            break;
        }
        row.check(result);
        if (length == SQL_NULL_DATA) {
            return std::nullopt;
        }
        const std::size_t units = static_cast<std::size_t>(length) / sizeof(char16_t);
        if (length >= 0 && units < room) {
            read += units;
            break;
        }
        // All of the room but the closing NUL is filled.
        read += room - 1;
        const std::size_t rest = length >= 0 ? units - room + 2 : buffer_.size();
        buffer_.resize(read + rest);
    }
    return std::u16string_view(buffer_).substr(0, read);
}

} // namespace kvex::odbc

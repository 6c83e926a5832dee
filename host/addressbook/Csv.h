// Rows of comma separated values, as RFC 4180 writes them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct CsvRow {
    /// Where it begins, from 1.
    std::size_t line = 0;
    std::vector<std::string> fields;
    /// Why it cannot be read, without a full stop; "" when it can.
    std::string fault;
};

/// Lines end in CR LF or LF. A quotation mark within a field that begins without one stands for
/// itself.
class CsvReader {
public:
    /// The text is the caller's, and begins in `line` of its file.
    CsvReader(std::string_view text, char separator, std::size_t line = 1)
        : text_(text), separator_(separator), line_(line) {}

    /// The next row, false when there is none; lines of blanks alone are none. A row that cannot
    /// be read ends with its first line.
    bool next(CsvRow &row);

private:
    [[nodiscard]] bool atEnd() const { return at_ == text_.size(); }
    [[nodiscard]] bool atFieldEnd() const;
    bool skipBlankLine();
    void readFields(CsvRow &row);
    std::string readPlain();
    std::string readQuoted(CsvRow &row);
    void passLineBreak();

    std::string_view text_;
    char separator_;
    std::size_t at_ = 0;
    std::size_t line_;
};

} // namespace kvex::host

// Rows of comma separated values, as RFC 4180 writes them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct CsvRow {
    /// The line where it begins, from 1.
    std::size_t line = 0;
    std::vector<std::string> fields;
    /// Why it cannot be read, without a full stop. "" when it can.
    std::string fault;
};

/// Lines end in CR LF or LF. A quotation mark is an ordinary character in a field that does not
/// begin with one.
class CsvReader {
public:
    /// `text` must outlive the reader. It begins in line `line` of its file.
    CsvReader(std::string_view text, char separator, std::size_t line = 1)
        : text_(text), separator_(separator), line_(line) {}

    /// Reads the next row, and skips blank lines before it. Returns false when there is none. A row
    /// that cannot be read ends with its first line.
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

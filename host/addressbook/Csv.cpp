#include "host/addressbook/Csv.h"

#include <algorithm>

namespace kvex::host {
namespace {

/// Rows of contacts are far shorter. A longer row would take too much memory.
constexpr std::size_t longestLine = std::size_t{1024} * 1024;

} // namespace

bool CsvReader::next(CsvRow &row) {
    while (skipBlankLine()) {
    }
    if (atEnd()) {
        return false;
    }
    const std::size_t start = at_;
    row = {line_, {}, {}};
    const std::size_t lineEnd = std::min(text_.find('\n', at_), text_.size());
    if (lineEnd - start > longestLine) {
        row.fault = "the row is longer than 1 MiB";
    } else {
        readFields(row);
    }
    if (!row.fault.empty()) {
        at_ = lineEnd;
        line_ = row.line;
    }
    passLineBreak();
    return true;
}

bool CsvReader::skipBlankLine() {
    const std::size_t end = std::min(text_.find('\n', at_), text_.size());
    const std::string_view line = text_.substr(at_, end - at_);
    // A tab may separate fields.
    if (atEnd() || line.find_first_not_of(" \r") != std::string_view::npos) {
        return false;
    }
    at_ = end;
    passLineBreak();
    return true;
}

void CsvReader::readFields(CsvRow &row) {
    for (;;) {
        const bool quoted = !atEnd() && text_[at_] == '"';
        row.fields.push_back(quoted ? readQuoted(row) : readPlain());
        if (!row.fault.empty() || atEnd() || text_[at_] != separator_) {
            return;
        }
        ++at_;
    }
}

bool CsvReader::atFieldEnd() const {
    return atEnd() || text_[at_] == separator_ || text_[at_] == '\n' ||
           text_.substr(at_, 2) == "\r\n" || text_.substr(at_) == "\r";
}

std::string CsvReader::readPlain() {
    const std::size_t start = at_;
    while (!atFieldEnd()) {
        ++at_;
    }
    return std::string(text_.substr(start, at_ - start));
}

/// Two quotation marks together stand for one.
std::string CsvReader::readQuoted(CsvRow &row) {
    std::string field;
    for (++at_; !atEnd(); ++at_) {
        if (text_[at_] == '\n') {
            ++line_;
        }
        if (text_[at_] == '"') {
            if (text_.substr(at_, 2) != "\"\"") {
                break;
            }
            ++at_;
        }
        field += text_[at_];
    }
    if (atEnd()) {
        row.fault = "the quotation mark is not closed";
    } else if (++at_; !atFieldEnd()) {
        row.fault = "text follows the closing quotation mark";
    }
    return field;
}

void CsvReader::passLineBreak() {
    at_ += text_.substr(at_, 1) == "\r" ? 1 : 0;
    if (!atEnd()) {
        ++at_;
        ++line_;
    }
}

} // namespace kvex::host

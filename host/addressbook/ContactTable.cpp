#include "host/addressbook/ContactFile.h"

#include "host/addressbook/ColumnNames.h"
#include "host/addressbook/Csv.h"
#include "host/addressbook/NumberCell.h"
#include "host/addressbook/TextEncoding.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <optional>
#include <stdexcept>

namespace kvex::host {
namespace {

/// Indexes of columns.
using Columns = std::vector<std::size_t>;

/// The index of the first column with one of the `names`.
std::optional<std::size_t> placeOf(std::initializer_list<std::u16string> names,
                                   const std::vector<std::u16string> &headings) {
    const auto found = std::ranges::find_first_of(headings, names);
    return found == headings.end() ? std::nullopt
                                   : std::optional<std::size_t>(found - headings.begin());
}

class Header {
public:
    explicit Header(const CsvRow &row) : width_(row.fields.size()) {
        std::vector<std::u16string> headings;
        std::ranges::transform(row.fields, std::back_inserter(headings), plainHeading);
        for (std::size_t column = 0; column < headings.size(); ++column) {
            columns_[columnKind(headings[column])].push_back(column);
        }
        addLabelledNumbers(headings);
        // In German tables with a column "Vorname", "Name" is the surname.
        if (placeOf({u"vorname"}, headings) && columns_[ColumnKind::lastName].empty()) {
            std::swap(columns_[ColumnKind::lastName], columns_[ColumnKind::fullName]);
        }
    }

    [[nodiscard]] bool namesNumbers() const {
        return !labelled_.empty() || std::ranges::any_of(numberKinds, [&](ColumnKind kind) {
            return columns_.contains(kind);
        });
    }

    void read(const CsvRow &row, ContactFile &file) const {
        if (const std::string fault = faultOf(row); !fault.empty()) {
            file.skipped.push_back({row.line, fault});
            return;
        }
        const NumberCell cell = numbersIn(row);
        const std::u16string name = nameIn(row);
        if (!cell.fault.empty()) {
            file.skipped.push_back({row.line, cell.fault});
        } else if (cell.numbers.empty()) {
            file.skipped.push_back({row.line, "the row has no telephone number"});
        }
        for (const std::u16string &number : cell.numbers) {
            file.take(row.line, {name.empty() ? number : name, number});
        }
    }

private:
    /// Adds the numbered pairs of columns, such as "Phone 1 - Value" with "Phone 1 - Type".
    void addLabelledNumbers(const std::vector<std::u16string> &headings) {
        for (int number = 1;; ++number) {
            const std::u16string prefix = u"phone" + toText(std::int64_t{number});
            const auto value = placeOf({prefix + u"value"}, headings);
            if (!value) {
                return;
            }
            labelled_.push_back({*value, placeOf({prefix + u"type", prefix + u"label"}, headings)});
        }
    }

    [[nodiscard]] std::string faultOf(const CsvRow &row) const {
        if (!row.fault.empty()) {
            return row.fault;
        }
        if (!std::ranges::all_of(row.fields, isUtf8)) {
            return "the row holds bytes that are not a character";
        }
        const bool tooWide =
            row.fields.size() > width_ &&
            std::any_of(row.fields.begin() + static_cast<std::ptrdiff_t>(width_), row.fields.end(),
                        [](const std::string &field) { return !field.empty(); });
        return tooWide ? "the row has more fields than the first one" : "";
    }

    /// The numbers of the best kind in the row.
    [[nodiscard]] NumberCell numbersIn(const CsvRow &row) const {
        NumberCell all;
        for (const ColumnKind kind : numberKinds) {
            for (const std::size_t place : placesOf(kind, row)) {
                const NumberCell cell = readNumberCell(fieldOf(row, place));
                if (!cell.fault.empty()) {
                    return cell;
                }
                std::ranges::copy_if(cell.numbers, std::back_inserter(all.numbers),
                                     [&](const std::u16string &number) {
                                         return std::ranges::find(all.numbers, number) ==
                                                all.numbers.end();
                                     });
            }
            if (!all.numbers.empty()) {
                break;
            }
        }
        return all;
    }

    [[nodiscard]] Columns placesOf(ColumnKind kind, const CsvRow &row) const {
        const auto found = columns_.find(kind);
        Columns places = found == columns_.end() ? Columns() : found->second;
        for (const LabelledNumber &number : labelled_) {
            if (labelKind(number.label ? fieldOf(row, *number.label) : "") == kind) {
                places.push_back(number.value);
            }
        }
        return places;
    }

    [[nodiscard]] std::u16string nameIn(const CsvRow &row) const {
        std::u16string name = firstIn(row, ColumnKind::fullName);
        if (name.empty()) {
            for (const ColumnKind part :
                 {ColumnKind::firstName, ColumnKind::middleName, ColumnKind::lastName}) {
                const std::u16string word = firstIn(row, part);
                name += (name.empty() || word.empty() ? u"" : u" ") + word;
            }
        }
        return name.empty() ? firstIn(row, ColumnKind::organisation) : name;
    }

    [[nodiscard]] std::u16string firstIn(const CsvRow &row, ColumnKind kind) const {
        const auto columns = columns_.find(kind);
        if (columns != columns_.end()) {
            for (const std::size_t column : columns->second) {
                if (std::u16string text = oneLine(fieldOf(row, column)); !text.empty()) {
                    return text;
                }
            }
        }
        return {};
    }

    [[nodiscard]] static std::string_view fieldOf(const CsvRow &row, std::size_t column) {
        return column < row.fields.size() ? std::string_view(row.fields[column])
                                          : std::string_view();
    }

    struct LabelledNumber {
        std::size_t value;
        std::optional<std::size_t> label;
    };
    static constexpr std::array numberKinds{ColumnKind::mobile, ColumnKind::phone,
                                            ColumnKind::homePhone, ColumnKind::workPhone,
                                            ColumnKind::otherPhone};

    std::size_t width_;
    std::map<ColumnKind, Columns> columns_;
    std::vector<LabelledNumber> labelled_;
};

/// The separator that a first line such as "sep=;" names for spreadsheets, or "".
std::string namedSeparator(std::string_view line) {
    std::string plain = lowerCase(line);
    std::erase_if(plain, [](char byte) { return byte == '"' || byte == '\r'; });
    const bool isNamed = plain.size() == 5 && plain.starts_with("sep=");
    return isNamed ? plain.substr(4) : "";
}

} // namespace

ContactFile readContactTable(std::string_view text) {
    std::string separators = ",;\t";
    std::size_t line = 1;
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (const std::string named = namedSeparator(text.substr(0, end)); !named.empty()) {
        separators = named;
        text.remove_prefix(std::min(end + 1, text.size()));
        ++line;
    }
    for (const char separator : separators) {
        CsvReader reader(text, separator, line);
        CsvRow row;
        if (!reader.next(row)) {
            break;
        }
        const Header header(row);
        if (!header.namesNumbers()) {
            continue;
        }
        ContactFile file;
        bool anyRow = false;
        for (; reader.next(row); anyRow = true) {
            header.read(row, file);
        }
        if (!anyRow) {
            throw std::invalid_argument("Its first row names the columns, but no row follows.");
        }
        return file;
    }
    throw std::invalid_argument(
        "Its first row names no column of numbers. Name the columns there, as in: Name,Mobile");
}

} // namespace kvex::host

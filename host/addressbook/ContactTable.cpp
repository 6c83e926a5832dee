#include "host/addressbook/ContactTable.h"

#include "host/addressbook/Csv.h"
#include "host/addressbook/TextEncoding.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <stdexcept>

namespace kvex::host {
namespace {

using Names = std::span<const std::string_view>;
/// Places of columns, the preferred one first.
using Columns = std::vector<std::size_t>;

constexpr std::string_view fullNames[]{"name", "fullname", "displayname", "contactname", "contact"};
constexpr std::string_view firstNames[]{"firstname", "givenname", "forename"};
constexpr std::string_view lastNames[]{"lastname", "familyname", "surname"};
constexpr std::string_view numbers[]{"mobile",      "mobilephone", "mobilenumber", "mobileno",
                                     "cell",        "cellphone",   "cellnumber",   "phone",
                                     "phonenumber", "phoneno",     "primaryphone", "phone1value",
                                     "telephone",   "tel",         "number",       "msisdn"};

/// "First_Name " as "firstname".
std::string columnName(std::string_view field) {
    std::string name = lowerCase(field);
    std::erase_if(name, [](char byte) {
        return !((byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9'));
    });
    return name;
}

Columns columnsNamed(Names names, const std::vector<std::string> &header) {
    Columns columns;
    for (const std::string_view name : names) {
        for (std::size_t column = 0; column < header.size(); ++column) {
            if (header[column] == name) {
                columns.push_back(column);
            }
        }
    }
    return columns;
}

class Header {
public:
    explicit Header(const CsvRow &row) : width_(row.fields.size()) {
        std::vector<std::string> names;
        std::ranges::transform(row.fields, std::back_inserter(names), columnName);
        full_ = columnsNamed(fullNames, names);
        first_ = columnsNamed(firstNames, names);
        last_ = columnsNamed(lastNames, names);
        numbers_ = columnsNamed(numbers, names);
    }

    [[nodiscard]] bool namesNumbers() const { return !numbers_.empty(); }

    void read(const CsvRow &row, ContactFile &file) const {
        if (const std::string fault = faultOf(row); !fault.empty()) {
            file.skipped.push_back({row.line, fault});
            return;
        }
        const std::u16string number = numberIn(row);
        const std::u16string name = nameIn(row);
        if (number.empty()) {
            file.skipped.push_back({row.line, "the row has no telephone number"});
        } else {
            file.contacts.push_back({name.empty() ? number : name, number});
        }
    }

private:
    [[nodiscard]] std::string faultOf(const CsvRow &row) const {
        if (!row.fault.empty()) {
            return row.fault;
        }
        if (!std::ranges::all_of(row.fields, isUtf8)) {
            return "the row holds bytes that are no character";
        }
        const bool tooWide =
            row.fields.size() > width_ &&
            std::any_of(row.fields.begin() + static_cast<std::ptrdiff_t>(width_), row.fields.end(),
                        [](const std::string &field) { return !field.empty(); });
        return tooWide ? "the row has more fields than the first one" : "";
    }

    [[nodiscard]] std::u16string numberIn(const CsvRow &row) const {
        for (const std::size_t column : numbers_) {
            std::u16string number = fieldOf(row, column);
            if (hasDigit(number)) {
                return number;
            }
        }
        return {};
    }

    [[nodiscard]] std::u16string nameIn(const CsvRow &row) const {
        std::u16string name = firstIn(row, full_);
        if (name.empty()) {
            name = firstIn(row, first_);
            const std::u16string last = firstIn(row, last_);
            name += (name.empty() || last.empty() ? u"" : u" ") + last;
        }
        return name;
    }

    [[nodiscard]] static std::u16string firstIn(const CsvRow &row, const Columns &columns) {
        for (const std::size_t column : columns) {
            if (std::u16string text = fieldOf(row, column); !text.empty()) {
                return text;
            }
        }
        return {};
    }

    [[nodiscard]] static std::u16string fieldOf(const CsvRow &row, std::size_t column) {
        return column < row.fields.size() ? oneLine(row.fields[column]) : std::u16string();
    }

    std::size_t width_;
    Columns full_;
    Columns first_;
    Columns last_;
    Columns numbers_;
};

} // namespace

ContactFile readContactTable(std::string_view text) {
    for (const char separator : {',', ';', '\t'}) {
        CsvReader reader(text, separator);
        CsvRow row;
        if (!reader.next(row)) {
            break;
        }
        const Header header(row);
        if (!header.namesNumbers()) {
            continue;
        }
        ContactFile file;
        while (reader.next(row)) {
            header.read(row, file);
        }
        return file;
    }
    throw std::invalid_argument(
        "Its first row names no column of numbers. Name the columns there, as in: Name,Mobile");
}

} // namespace kvex::host

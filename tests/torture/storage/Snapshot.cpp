#include "tests/torture/storage/Snapshot.h"

#include "platform/Text.h"
#include "tests/databases/SqliteFixture.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace kvex::torture {
namespace {

std::vector<std::string> linesOf(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    std::ranges::sort(lines);
    return lines;
}

/// The line without the middle of a long text.
std::string shortened(const std::string &line) {
    constexpr std::size_t shown = 60;
    return line.size() <= 2 * shown
               ? line
               : line.substr(0, shown) + "..." + line.substr(line.size() - shown);
}

std::string differences(const char *sign, const std::vector<std::string> &lines,
                        const std::vector<std::string> &others) {
    std::vector<std::string> only;
    std::ranges::set_difference(lines, others, std::back_inserter(only));
    std::string text;
    for (const std::string &line : only) {
        text += sign + shortened(line) + "\n";
    }
    return text;
}

} // namespace

std::string snapshot(const std::filesystem::path &database) try {
    test::OtherProgram reader(database);
    reader.run(u"PRAGMA synchronous = OFF; PRAGMA busy_timeout = 2000");
    std::string text =
        reader.valueOf(u"PRAGMA integrity_check") == u"ok" ? std::string() : "damaged\n";
    for (const std::u16string &table :
         reader.rows(u"SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name")) {
        for (const std::u16string &row :
             reader.rows(u"SELECT rowid, * FROM " + table + u" ORDER BY rowid")) {
            text += toUtf8(table + u": " + row) + "\n";
        }
    }
    return text;
} catch (const std::runtime_error &error) {
    return std::string("unreadable: ") + error.what() + "\n";
}

std::string difference(const std::string &expected, const std::string &found) {
    const std::vector<std::string> before = linesOf(expected);
    const std::vector<std::string> after = linesOf(found);
    return differences("- ", before, after) + differences("+ ", after, before);
}

} // namespace kvex::torture

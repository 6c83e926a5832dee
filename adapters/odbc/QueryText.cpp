#include "adapters/odbc/QueryText.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kvex::odbc {
namespace {

using Words = std::vector<std::u16string_view>;

bool isLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_' ||
           unit >= 0x80;
}

bool isInWord(char16_t unit) {
    return isLetter(unit) || (unit >= u'0' && unit <= u'9');
}

bool isName(std::u16string_view word) {
    return !word.empty() && isLetter(word.front());
}

/// Splits the query into names, numbers, texts in apostrophes, and single characters. Leaves out
/// blanks.
Words wordsOf(std::u16string_view query) {
    Words words;
    for (std::size_t at = 0; at < query.size();) {
        std::size_t end = at + 1;
        if (isInWord(query[at])) {
            while (end < query.size() && isInWord(query[end])) {
                ++end;
            }
        } else if (query[at] == u'\'') {
            end = std::min(query.find(u'\'', end), query.size() - 1) + 1;
        }
        if (query[at] > u' ') {
            words.push_back(query.substr(at, end - at));
        }
        at = end;
    }
    return words;
}

bool is(std::u16string_view word, std::u16string_view keyword) {
    return recordset::equalIgnoringCase(word, keyword);
}

/// The column that an item of the list names; "*" for all columns, "" for an expression.
std::u16string originOf(const Words &item) {
    const bool plain = item.size() == 1 && (item[0] == u"*" || isName(item[0]));
    const bool renamed = item.size() == 3 && isName(item[0]) && is(item[1], u"AS");
    return plain || renamed ? std::u16string(item[0]) : std::u16string();
}

/// True when the words after a table's name neither join, group nor combine its rows.
bool leavesRows(const Words &words, std::size_t at) {
    constexpr std::array<std::u16string_view, 5> others{u"UNION", u"EXCEPT", u"INTERSECT", u"GROUP",
                                                        u"HAVING"};
    if (at < words.size() && !is(words[at], u"WHERE") && !is(words[at], u"ORDER")) {
        return false;
    }
    return std::none_of(words.begin() + static_cast<std::ptrdiff_t>(std::min(at, words.size())),
                        words.end(), [&](std::u16string_view word) {
                            return std::ranges::any_of(
                                others, [&](std::u16string_view other) { return is(word, other); });
                        });
}

} // namespace

bool isPlainQuery(std::u16string_view text) {
    // Servers differ in where a text ends, so INTO and ";" are refused even inside one.
    const std::u16string upper = upperCase(text);
    return upper.starts_with(u"SELECT") && upper.find(u"INTO") == std::u16string::npos &&
           upper.find(u';') == std::u16string::npos;
}

std::vector<std::u16string> originsIn(std::u16string_view query,
                                      const std::vector<std::u16string> &names) {
    const Words words = wordsOf(query);
    if (words.empty() || !is(words[0], u"SELECT")) {
        return {};
    }
    std::vector<std::u16string> items;
    Words item;
    int depth = 0;
    std::size_t at = 1;
    for (; at < words.size() && (depth > 0 || !is(words[at], u"FROM")); ++at) {
        depth += words[at] == u"(" ? 1 : 0;
        depth -= words[at] == u")" ? 1 : 0;
        if (depth == 0 && words[at] == u",") {
            items.push_back(originOf(item));
            item.clear();
        } else {
            item.push_back(words[at]);
        }
    }
    items.push_back(originOf(item));
    if (at + 1 >= words.size() || !isName(words[at + 1]) || !leavesRows(words, at + 2)) {
        return {};
    }
    std::vector<std::u16string> origins;
    for (const std::u16string &origin : items) {
        if (origin != u"*") {
            origins.push_back(origin);
        } else if (names.size() + 1 >= items.size()) {
            const auto first = names.begin() + static_cast<std::ptrdiff_t>(origins.size());
            const auto all = static_cast<std::ptrdiff_t>(names.size() + 1 - items.size());
            if (all > names.end() - first) {
                return {};
            }
            origins.insert(origins.end(), first, first + all);
        }
    }
    return origins.size() == names.size() ? origins : std::vector<std::u16string>();
}

} // namespace kvex::odbc

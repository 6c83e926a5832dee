// A connection string: "KEY=VALUE;KEY=VALUE" or the bare path of a database file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvex::recordset {

/// Keys are found without regard to case; of a key given twice the first counts. Blanks around
/// keys and values do not count. A value in braces or quotes holds any character, its closing
/// one doubled: {a}}b} is "a}b".
///
/// A text without "=", or without ";" and with no keyword before its first "=", is a path:
/// "/data/rules.db", "file:rules?mode=memory&cache=shared".
class ConnectionString {
public:
    struct Entry {
        std::u16string key;
        std::u16string value;
    };

    /// Fails with badArgument for a text that cannot be read. The description says where, and
    /// repeats nothing of the text: it may hold a password.
    explicit ConnectionString(std::u16string_view text);

    /// A path is held as the value of "Data Source".
    [[nodiscard]] bool isPath() const noexcept { return isPath_; }
    /// "" for a key that it has not.
    [[nodiscard]] std::u16string_view value(std::u16string_view key) const;
    [[nodiscard]] bool has(std::u16string_view key) const;
    void add(std::u16string_view key, std::u16string_view value);
    [[nodiscard]] const std::vector<Entry> &entries() const noexcept { return entries_; }

private:
    [[nodiscard]] const Entry *find(std::u16string_view key) const;

    bool isPath_ = false;
    std::vector<Entry> entries_;
};

} // namespace kvex::recordset

// Reads connection strings: "KEY=VALUE;KEY=VALUE", or only the path of a database file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvex::recordset {

/// The case of keys and the blanks around keys and values do not matter. When a key occurs twice,
/// the first one counts. A value in braces or quotes may contain any character, with the closing
/// one doubled: {a}}b} means "a}b".
///
/// A text is a path when it has no "=". It is also a path when it has no ";" and no keyword before
/// its first "=". Examples are "/data/rules.db" and "file:rules?mode=memory&cache=shared".
class ConnectionString {
public:
    struct Entry {
        std::u16string key;
        std::u16string value;
    };

    /// Fails with badArgument for a text that cannot be read. The description says where, but
    /// quotes nothing of the text, because it may contain a password.
    explicit ConnectionString(std::u16string_view text);

    /// True for a path. Its key is "Data Source".
    [[nodiscard]] bool isPath() const noexcept { return isPath_; }
    /// "" for a key that the string does not have.
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

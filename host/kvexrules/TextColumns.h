// Lines of text in columns, for a list at a terminal.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace kvex::host {

enum class Align { left, right };

/// Two blanks separate the columns. The last one is as wide as its text.
class TextColumns {
public:
    explicit TextColumns(std::vector<Align> columns) : columns_(std::move(columns)) {}

    /// Adds a line with one text for each column. visible() escapes them.
    void add(std::initializer_list<std::u16string> texts);

    /// All lines in UTF-8, each with a newline.
    [[nodiscard]] std::string text() const;

private:
    std::vector<Align> columns_;
    std::vector<std::vector<std::u16string>> lines_;
};

} // namespace kvex::host

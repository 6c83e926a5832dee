// The rows of a query, kept compactly in memory.
#pragma once

#include "adapters/recordset/Driver.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

namespace kvex::recordset {

/// A value takes 16 bytes; texts lie one behind the other in chunks. A text stays where it is,
/// replaced ones too, until the store goes. One that came as UTF-8 is kept so until it is asked
/// for, as most never are. For one thread.
class RowStore final : public RowSink {
public:
    void columns(std::vector<Column> columns) override { columns_ = std::move(columns); }
    void null() override { cells_.emplace_back(); }
    void integer(std::int64_t number) override { cells_.push_back(cellOf(number)); }
    void number(double number) override { cells_.push_back(cellOf(number)); }
    void text(std::u16string_view text) override { cells_.push_back(cellOf(text)); }
    void utf8(std::string_view text) override;

    [[nodiscard]] const std::vector<Column> &columns() const noexcept { return columns_; }
    [[nodiscard]] std::size_t rowCount() const noexcept {
        return columns_.empty() ? 0 : cells_.size() / columns_.size();
    }
    [[nodiscard]] ValueView value(std::size_t row, std::size_t column) const;
    /// Whether it was read or set; an unknown one reads as Null.
    [[nodiscard]] bool isKnown(std::size_t row, std::size_t column) const {
        return cells_[row * columns_.size() + column].kind != Kind::unknown;
    }
    void set(std::size_t row, std::size_t column, const ValueView &value);
    /// A row of unknown values behind the last one.
    void appendRow() { cells_.resize(cells_.size() + columns_.size(), unknownCell()); }

private:
    enum class Kind : std::uint32_t { null, integer, number, text, utf8, unknown };
    struct Cell {
        Kind kind = Kind::null;
        std::uint32_t length = 0;
        union {
            std::int64_t integer = 0;
            double number;
            const char16_t *text;
            const char *utf8;
        };
    };
    static_assert(sizeof(Cell) == 16);

    static Cell unknownCell() {
        Cell cell;
        cell.kind = Kind::unknown;
        return cell;
    }
    static Cell cellOf(Null /*null*/) { return {}; }
    static Cell cellOf(std::int64_t number);
    static Cell cellOf(double number);
    Cell cellOf(std::u16string_view text);
    [[nodiscard]] Cell fromUtf8(const Cell &cell) const;
    /// Room for a text of that length at `free_`.
    void provide(std::size_t length) const;
    /// The text that was written there.
    [[nodiscard]] Cell takeText(const char16_t *end) const;

    std::vector<Column> columns_;
    // What a text that is asked for changes.
    mutable std::deque<Cell> cells_;
    mutable std::vector<std::unique_ptr<char16_t[]>> chunks_;
    mutable char16_t *free_ = nullptr;
    mutable std::size_t freeLength_ = 0;
};

} // namespace kvex::recordset

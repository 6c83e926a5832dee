// Stores the rows of a query compactly in memory.
#pragma once

#include "adapters/recordset/Driver.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace kvex::recordset {

/// A value takes 16 bytes, and texts lie one after the other in chunks. Every text, even a replaced
/// one, stays in its place until the store is destroyed. A text that came as UTF-8 becomes UTF-16
/// when a caller first reads it; most are never read. Each text that was read has a fingerprint,
/// which makes searches fast. A call that fails for lack of memory changes nothing and can be
/// repeated. Only one thread may use a store.
class RowStore final : public RowSink {
public:
    enum class Kind : std::uint32_t { null, integer, number, text, utf8, unknown };
    /// A value as it lies in the store.
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

    void columns(std::vector<Column> columns) override;
    void null() override { add({}); }
    void integer(std::int64_t number) override { add(cellOf(number)); }
    void number(double number) override { add(cellOf(number)); }
    void text(std::u16string_view text) override { add(cellOf(text)); }
    void utf8(std::string_view text) override;

    [[nodiscard]] const std::vector<Column> &columns() const noexcept { return columns_; }
    /// The number of complete rows.
    [[nodiscard]] std::size_t rowCount() const noexcept { return rowCount_; }
    [[nodiscard]] ValueView value(std::size_t row, std::size_t column) const;
    /// The first row at or after `from` whose value may equal `text` without regard to case. The
    /// rows before it do not. When there is none, rowCount() or more. The search compares only
    /// fingerprints and lengths, so the caller must compare the text of the row.
    [[nodiscard]] std::size_t nextLike(std::u16string_view text, std::size_t column,
                                       std::size_t from) const;
    /// True when the value was read or set. An unknown value reads as Null.
    [[nodiscard]] bool isKnown(std::size_t row, std::size_t column) const {
        return cellAt(row, column).kind != Kind::unknown;
    }
    /// The value as it lies there now. It can be set again later, even after a replacement.
    [[nodiscard]] Cell cell(std::size_t row, std::size_t column) const {
        return cellAt(row, column);
    }
    /// Allocates what `value` needs, so that set cannot fail.
    [[nodiscard]] Cell prepared(const ValueView &value);
    void set(std::size_t row, std::size_t column, const Cell &prepared) noexcept;
    /// Appends a row of unknown values.
    void appendRow();

private:
    /// The fingerprintIgnoringCase of a text. 0 for any other value, and for UTF-8 that was not
    /// read.
    using Fingerprint = std::uint16_t;

    static Cell cellOf(Null /*null*/) { return {}; }
    static Cell cellOf(std::int64_t number);
    static Cell cellOf(double number);
    Cell cellOf(std::u16string_view text);
    /// Appends a value.
    void add(const Cell &cell);
    [[nodiscard]] Cell &cellAt(std::size_t row, std::size_t column) const {
        return pieces_[row / rowsOfPiece][column * rowsOfPiece + row % rowsOfPiece];
    }
    /// Stores a cell and its fingerprint. All functions store cells through this one.
    void put(std::size_t row, std::size_t column, const Cell &cell) const noexcept;
    /// True when the value can be a text of `length` units. The text itself is not read.
    static bool canBeText(const Cell &cell, std::size_t length);
    [[nodiscard]] Cell fromUtf8(const Cell &cell) const;
    /// Makes room for `length` units at `free_`.
    void provide(std::size_t length) const;
    /// Takes the text that was written from `free_` to `end`.
    [[nodiscard]] Cell takeText(const char16_t *end) const;

    static constexpr std::size_t rowsOfPiece = 64;

    std::vector<Column> columns_;
    /// Each piece has the cells of rowsOfPiece rows, column after column.
    std::vector<std::unique_ptr<Cell[]>> pieces_;
    /// One for each column and row. They change in const functions too: when a text becomes UTF-16.
    mutable std::vector<std::vector<Fingerprint>> fingerprints_;
    std::size_t rowCount_ = 0;
    /// How many values the incomplete last row has.
    std::size_t begun_ = 0;
    // Memory for texts. Reading a text can take some, when it becomes UTF-16.
    mutable std::vector<std::unique_ptr<char16_t[]>> chunks_;
    mutable char16_t *free_ = nullptr;
    mutable std::size_t freeLength_ = 0;
};

} // namespace kvex::recordset

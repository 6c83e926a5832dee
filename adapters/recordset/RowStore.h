// The rows of a query, kept compactly in memory.
#pragma once

#include "adapters/recordset/Driver.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace kvex::recordset {

/// A value takes 16 bytes; texts lie one behind the other in chunks. A text stays where it is,
/// replaced ones too, until the store goes. One that came as UTF-8 is kept so until it is asked
/// for, as most never are. Beside each value lies the fingerprint of its text, for searches. A
/// call that finds no memory changes nothing and can be repeated. For one thread.
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
    /// The whole ones.
    [[nodiscard]] std::size_t rowCount() const noexcept { return rowCount_; }
    [[nodiscard]] ValueView value(std::size_t row, std::size_t column) const;
    /// The first row from `from` on whose value can be this text, its case aside; without one
    /// rowCount() or more. No row before it can, and most are told apart without being read.
    [[nodiscard]] std::size_t nextLike(std::u16string_view text, std::size_t column,
                                       std::size_t from) const;
    /// Whether it was read or set; an unknown one reads as Null.
    [[nodiscard]] bool isKnown(std::size_t row, std::size_t column) const {
        return cellAt(row, column).kind != Kind::unknown;
    }
    /// Takes the memory that `value` needs here: setting it needs none then.
    [[nodiscard]] Cell prepared(const ValueView &value);
    void set(std::size_t row, std::size_t column, const Cell &prepared) noexcept;
    /// A row of unknown values behind the last one.
    void appendRow();

private:
    /// fingerprintIgnoringCase of a text; 0 for any other value, and UTF-8 that nobody asked for.
    using Fingerprint = std::uint16_t;

    static Cell cellOf(Null /*null*/) { return {}; }
    static Cell cellOf(std::int64_t number);
    static Cell cellOf(double number);
    Cell cellOf(std::u16string_view text);
    /// Behind the last value.
    void add(const Cell &cell);
    [[nodiscard]] Cell &cellAt(std::size_t row, std::size_t column) const {
        return pieces_[row / rowsOfPiece][column * rowsOfPiece + row % rowsOfPiece];
    }
    /// The one place where a text gets into its cell, or out of it.
    void put(std::size_t row, std::size_t column, const Cell &cell) const noexcept;
    /// Whether the value can be a text of so many units: told without reading it.
    static bool canBeText(const Cell &cell, std::size_t length);
    [[nodiscard]] Cell fromUtf8(const Cell &cell) const;
    /// Room for a text of that length at `free_`.
    void provide(std::size_t length) const;
    /// The text that was written there.
    [[nodiscard]] Cell takeText(const char16_t *end) const;

    static constexpr std::size_t rowsOfPiece = 64;

    std::vector<Column> columns_;
    /// Each of so many rows, column after column. A text that is asked for changes its cell, and
    /// its fingerprint.
    std::vector<std::unique_ptr<Cell[]>> pieces_;
    /// Of each column those of its rows.
    mutable std::vector<std::vector<Fingerprint>> fingerprints_;
    std::size_t rowCount_ = 0;
    /// The values of the row behind the last whole one that have come.
    std::size_t begun_ = 0;
    // What a text that is asked for takes up.
    mutable std::vector<std::unique_ptr<char16_t[]>> chunks_;
    mutable char16_t *free_ = nullptr;
    mutable std::size_t freeLength_ = 0;
};

} // namespace kvex::recordset

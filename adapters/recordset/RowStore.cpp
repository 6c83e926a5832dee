#include "adapters/recordset/RowStore.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "platform/Text.h"

#include <algorithm>
#include <variant>

namespace kvex::recordset {
namespace {

/// Each chunk is twice as long as the last, up to a limit. So small tables take little memory.
constexpr std::size_t firstChunk = 0x400;
constexpr std::size_t doublings = 5;

} // namespace

void RowStore::columns(std::vector<Column> columns) {
    columns_ = std::move(columns);
    fingerprints_.resize(columns_.size());
}

RowStore::Cell RowStore::cellOf(std::int64_t number) {
    Cell cell;
    cell.kind = Kind::integer;
    cell.integer = number;
    return cell;
}

RowStore::Cell RowStore::cellOf(double number) {
    Cell cell;
    cell.kind = Kind::number;
    cell.number = number;
    return cell;
}

RowStore::Cell RowStore::cellOf(std::u16string_view text) {
    provide(text.size());
    return takeText(std::ranges::copy(text, free_).out);
}

void RowStore::utf8(std::string_view text) {
    provide((text.size() + 1) / 2);
    Cell cell;
    cell.kind = Kind::utf8;
    cell.length = static_cast<std::uint32_t>(text.size());
    auto *const bytes = reinterpret_cast<char *>(free_);
    std::ranges::copy(text, bytes);
    cell.utf8 = bytes;
    free_ += (text.size() + 1) / 2;
    freeLength_ -= (text.size() + 1) / 2;
    add(cell);
}

void RowStore::add(const Cell &cell) {
    if (pieces_.size() * rowsOfPiece == rowCount_) {
        pieces_.push_back(std::make_unique<Cell[]>(rowsOfPiece * columns_.size()));
    }
    fingerprints_[begun_].push_back(0);
    put(rowCount_, begun_, cell);
    if (++begun_ == columns_.size()) {
        begun_ = 0;
        ++rowCount_;
    }
}

void RowStore::appendRow() {
    Cell unknown;
    unknown.kind = Kind::unknown;
    // Continues where an earlier call ran out of memory.
    do {
        add(unknown);
    } while (begun_ != 0);
}

RowStore::Cell RowStore::fromUtf8(const Cell &cell) const {
    // No text has more units than bytes.
    provide(cell.length);
    return takeText(kvex::fromUtf8({cell.utf8, cell.length}, free_));
}

void RowStore::provide(std::size_t length) const {
    if (length > freeLength_) {
        const std::size_t size =
            std::max(length, firstChunk << std::min(chunks_.size(), doublings));
        chunks_.push_back(std::make_unique_for_overwrite<char16_t[]>(size));
        free_ = chunks_.back().get();
        freeLength_ = size;
    }
}

RowStore::Cell RowStore::takeText(const char16_t *end) const {
    Cell cell;
    cell.kind = Kind::text;
    cell.length = static_cast<std::uint32_t>(end - free_);
    cell.text = free_;
    free_ += cell.length;
    freeLength_ -= cell.length;
    return cell;
}

void RowStore::put(std::size_t row, std::size_t column, const Cell &cell) const noexcept {
    cellAt(row, column) = cell;
    fingerprints_[column][row] =
        cell.kind == Kind::text ? fingerprintIgnoringCase({cell.text, cell.length}) : 0;
}

std::size_t RowStore::nextLike(std::u16string_view text, std::size_t column,
                               std::size_t from) const {
    constexpr std::size_t block = 64;
    const std::vector<Fingerprint> &held = fingerprints_[column];
    const Fingerprint wanted = fingerprintIgnoringCase(text);
    const auto isLike = [&](std::size_t row) {
        return static_cast<unsigned>(held[row] == wanted) | static_cast<unsigned>(held[row] == 0);
    };
    std::size_t row = from;
    while (row < rowCount_) {
        const std::size_t end = std::min(rowCount_, (row / block + 1) * block);
        // Most blocks have no such row. The compiler can make this loop compare several rows at a
        // time, because it always runs to its end.
        unsigned any = 0;
        for (std::size_t next = row; next < end; ++next) {
            any |= isLike(next);
        }
        if (any == 0) {
            row = end;
        }
        for (; row < end; ++row) {
            if (isLike(row) != 0 && canBeText(cellAt(row, column), text.size())) {
                return row;
            }
        }
    }
    return row;
}

bool RowStore::canBeText(const Cell &cell, std::size_t length) {
    constexpr std::size_t mostBytesForUnit = 3;
    return cell.kind == Kind::text ? cell.length == length
                                   : cell.kind == Kind::utf8 && cell.length >= length &&
                                         cell.length <= length * mostBytesForUnit;
}

ValueView RowStore::value(std::size_t row, std::size_t column) const {
    const Cell &cell = cellAt(row, column);
    if (cell.kind == Kind::utf8) {
        put(row, column, fromUtf8(cell));
    }
    switch (cell.kind) {
    case Kind::integer:
        return ValueView(cell.integer);
    case Kind::number:
        return ValueView(cell.number);
    case Kind::text:
        return ValueView(std::u16string_view(cell.text, cell.length));
    case Kind::null:
    case Kind::utf8:
    case Kind::unknown:
        break;
    }
    return {};
}

RowStore::Cell RowStore::prepared(const ValueView &value) {
    return std::visit([&](auto held) { return cellOf(held); }, value.held());
}

void RowStore::set(std::size_t row, std::size_t column, const Cell &prepared) noexcept {
    put(row, column, prepared);
}

} // namespace kvex::recordset

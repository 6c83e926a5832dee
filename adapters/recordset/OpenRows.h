// The rows of an open record set, with what is pending, and the statements that write them.
#pragma once

#include "adapters/recordset/ClientCursor.h"
#include "adapters/recordset/OpenDatabase.h"
#include "adapters/recordset/RowStatements.h"
#include "platform/Database.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kvex::recordset {

/// Valid as long as `value` is.
[[nodiscard]] ValueView viewOf(const Value &value);

struct OpenRows {
    /// Shared with the undo of a transaction, which ends with it.
    std::shared_ptr<ClientCursor> cursor;
    std::weak_ptr<OpenDatabase> database;
    std::u16string source;
    LockType lock;
    /// The values that are set but not yet written, by column.
    std::map<std::size_t, Value> changes;
    /// True when the changes belong to a new record. The cursor then keeps its place.
    bool isNew = false;
    /// The table of the rows; set when the driver has said where the columns come from.
    std::optional<BaseTable> base;

    void discardPending() noexcept;
    /// Fails with noCurrentRecord unless the current record is a row of the table.
    void requireRow() const;
    /// Fails with objectClosed when the connection has closed.
    [[nodiscard]] std::shared_ptr<OpenDatabase> connected() const;
    /// The table, for a write. Fails with badArgument when the rows cannot be written.
    [[nodiscard]] const BaseTable &writable(const OpenDatabase &open);
    /// These store the pending record or changes, or remove the current record. They fail as the
    /// calls of Recordset do.
    void insert();
    void write();
    void remove();
    /// Reads the current record again.
    void resync();

private:
    /// The table of the rows. Fails with badArgument when there is none.
    [[nodiscard]] const BaseTable &table(Driver &driver);
    [[nodiscard]] RowKey keyOf(const BaseTable &table) const;
    /// What messages call the current row: "record ID 3".
    [[nodiscard]] std::u16string nameOf(const BaseTable &table) const;
    /// The changes as assignments. Fails with badArgument for a computed column.
    [[nodiscard]] std::vector<Assignment> assignments() const;
    /// The known values of the current row, without the key and computed columns.
    [[nodiscard]] std::vector<Assignment> known() const;
    /// True when the current row still reads as `read` in the database.
    [[nodiscard]] bool readsAsBefore(Driver &driver, const BaseTable &table,
                                     const std::vector<Assignment> &read) const;
    /// Throws the error of a write that found no row with the key and these values.
    [[noreturn]] void refuseUnmet(Driver &driver, const BaseTable &table,
                                  const std::vector<Assignment> &read) const;
    /// New values for the current row, by column.
    using Held = std::vector<std::pair<std::size_t, RowStore::Cell>>;
    /// The changes with their memory allocated: after the database has stored them, keeping
    /// them must not fail.
    [[nodiscard]] Held preparedChanges();
    /// Puts the values into the current row; no change is pending afterwards.
    void hold(const Held &held) noexcept;
    /// The values that `held` replaces in the current row.
    [[nodiscard]] Held replacedBy(const Held &held) const;
    /// In a transaction, prepares that a rollback runs `undo` on the cursor.
    template <class Undo> void prepareUndo(OpenDatabase &open, Undo undo) const;
};

} // namespace kvex::recordset

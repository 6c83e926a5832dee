// The client-side record set for every kind of database.
#pragma once

#include "adapters/recordset/ClientCursor.h"
#include "adapters/recordset/OpenDatabase.h"
#include "adapters/recordset/RowStatements.h"
#include "platform/Database.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvex::recordset {

/// Opens on a ClientConnection; open fails with badArgument on any other connection.
class ClientRecordset final : public Recordset {
public:
    void setCursorLocation(CursorLocation location) override;
    void open(std::u16string_view source, Connection &connection, CursorType cursor, LockType lock,
              std::int32_t options) override;
    [[nodiscard]] ObjectState state() const override;
    void close() override;

    [[nodiscard]] bool bof() const override;
    [[nodiscard]] bool eof() const override;
    [[nodiscard]] std::int32_t recordCount() const override;

    void moveFirst() override;
    void moveNext() override;
    void find(std::u16string_view criterion, std::int32_t skip) override;

    [[nodiscard]] ValueView field(std::u16string_view name) const override;
    void setField(std::u16string_view name, const Value &value) override;

    void requireWritable() override;
    void addNew() override;
    void update() override;
    void deleteCurrent() override;
    void resyncCurrent() override;

private:
    struct Opened {
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
        /// The table of the rows. Fails with badArgument when there is none.
        [[nodiscard]] const BaseTable &table(Driver &driver);
        /// The table, for a write. Fails with badArgument when the rows cannot be written.
        [[nodiscard]] const BaseTable &writable(Driver &driver);
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
        void insert();
        void write();
        void remove();
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

    [[nodiscard]] const Opened &opened() const;
    [[nodiscard]] Opened &opened();

    std::optional<Opened> opened_;
};

} // namespace kvex::recordset

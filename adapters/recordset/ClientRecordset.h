// The client-side record set that every database shares.
#pragma once

#include "adapters/recordset/BaseTable.h"
#include "adapters/recordset/ClientCursor.h"
#include "adapters/recordset/Driver.h"
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

/// Opens on a ClientConnection; on a connection of another class it fails with badArgument.
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

    void addNew() override;
    void update() override;
    void deleteCurrent() override;
    void resyncCurrent() override;

private:
    struct Opened {
        ClientCursor cursor;
        std::weak_ptr<Driver> driver;
        std::u16string source;
        LockType lock;
        /// The values set and not yet written, by column.
        std::map<std::size_t, Value> changes;
        /// They are those of a new record; the cursor stays where it was before.
        bool isNew = false;
        /// The table of the rows, once the driver has said where the columns come from.
        std::optional<BaseTable> base;

        void discardPending() noexcept;
        /// Fails with noCurrentRecord unless a row of the table is the current record.
        void requireRow() const;
        /// Fails with objectClosed when the connection has closed.
        [[nodiscard]] std::shared_ptr<Driver> connected() const;
        /// The table of the rows. Fails with badArgument when there is none.
        [[nodiscard]] const BaseTable &table(Driver &database);
        /// Fails with badArgument when the rows cannot be written.
        [[nodiscard]] const BaseTable &writable(Driver &database);
        [[nodiscard]] RowKey keyOf(const BaseTable &table) const;
        /// The current row, for the user: "record ID 3".
        [[nodiscard]] std::u16string nameOf(const BaseTable &table) const;
        /// Of the changes; fails with badArgument when one is to a computed column.
        [[nodiscard]] std::vector<Assignment> assignments() const;
        /// What is known of the current row's columns in the table beside its key.
        [[nodiscard]] std::vector<Assignment> known() const;
        void insert();
        void write();
        void remove();
        /// What the current row will hold, by column.
        using Held = std::vector<std::pair<std::size_t, RowStore::Cell>>;
        /// The changes. They take their memory here: what the database has stored must be held.
        [[nodiscard]] Held preparedChanges();
        /// In the current row; nothing is pending in it then.
        void hold(const Held &held) noexcept;
    };

    [[nodiscard]] const Opened &opened() const;
    [[nodiscard]] Opened &opened();

    std::optional<Opened> opened_;
};

} // namespace kvex::recordset

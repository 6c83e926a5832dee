// The database as the component needs it: one connection, and client-side record sets on it.
#pragma once

#include "platform/Value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kvex {

enum class ObjectState : std::int32_t { closed = 0, open = 1 };
enum class CursorLocation : std::int32_t { server = 2, client = 3 };
enum class CursorType : std::int32_t { forwardOnly = 0, keyset = 1, dynamic = 2, staticCopy = 3 };
enum class LockType : std::int32_t { readOnly = 1, pessimistic = 2, optimistic = 3 };
/// "Unspecified", for the options of both kinds of open.
inline constexpr std::int32_t unspecifiedOptions = -1;

/// One connection to one database.
class Connection {
public:
    virtual ~Connection() = default;

    /// Opens the database that `connectionString` names. Fails with objectOpen when it is open
    /// already, with badArgument for a string that names no known provider or no database, and
    /// with the provider's negative number when the database refuses; it then stays closed. No
    /// database is created. The description says what to do. `userId` and `password` apply where
    /// the string has none; empty ones are not sent.
    virtual void open(std::u16string_view connectionString, std::u16string_view userId = {},
                      std::u16string_view password = {},
                      std::int32_t options = unspecifiedOptions) = 0;
    [[nodiscard]] virtual ObjectState state() const = 0;
    /// Fails with objectClosed when it is not open. Record sets opened on it stay readable, and
    /// stay without a connection when it is opened again.
    virtual void close() = 0;
};

/// The rows of one query, all read when it is opened, with a current record.
///
/// Closed: every call but state, setCursorLocation and open fails with objectClosed. A record set
/// outlives the closing of its connection for reading; a write or resync then fails with
/// objectClosed.
///
/// What a write or resync says when the database refuses begins with what did not come about
/// ("The change of record ID 3 was not stored."), then why, then what to do.
///
/// Rows can be written when the query is on one table with a primary key, has each of its key
/// columns once, and was opened with another lock than readOnly; else a write fails with
/// badArgument. So does one to a column that the query computes.
class Recordset {
public:
    virtual ~Recordset() = default;

    /// Where the rows are kept. Fails with objectOpen while open. Only `client` is kept apart
    /// from the database; `server` is accepted and treated alike.
    virtual void setCursorLocation(CursorLocation location) = 0;
    /// Runs `source` on `connection`, reads every row and stands on the first one. Every cursor
    /// type is a copy of the rows as they are now. Fails with objectOpen when open already,
    /// objectClosed when the connection is not open, badArgument for a statement that gives no
    /// rows (it is not run), and the provider's number when the database refuses; it then stays
    /// closed.
    virtual void open(std::u16string_view source, Connection &connection,
                      CursorType cursor = CursorType::forwardOnly,
                      LockType lock = LockType::readOnly,
                      std::int32_t options = unspecifiedOptions) = 0;
    [[nodiscard]] virtual ObjectState state() const = 0;
    /// Drops the rows and what is pending.
    virtual void close() = 0;

    /// Both are true on an empty set. On a pending new record, and on a removed one until the
    /// next move, both are false.
    [[nodiscard]] virtual bool bof() const = 0;
    [[nodiscard]] virtual bool eof() const = 0;
    /// Rows that are in the table: neither the pending new record nor a deleted one counts.
    [[nodiscard]] virtual std::int32_t recordCount() const = 0;

    /// Every move, every find and addNew discards what is pending, also when it fails then: only
    /// update ever writes. From a discarded new record they go on where the set stood before it.
    /// On an empty set moveFirst leaves the end of file without an error.
    virtual void moveFirst() = 0;
    /// Past the last record it sets eof; at eof it fails with noCurrentRecord.
    virtual void moveNext() = 0;
    /// Searches forward for `COLUMN = number` or `COLUMN = 'text'`, from the current record
    /// after skipping `skip`. A number finds numbers only, a text texts only. Text compares
    /// without regard to case, trailing blanks count. Nothing found: eof. Fails with badArgument
    /// on a criterion that it cannot read, an apostrophe inside the text among them, and on a
    /// negative `skip`, with itemNotFound for an unknown column; it then stays where it was. At
    /// eof it finds nothing. The search for a number in a column of integers uses an index.
    virtual void find(std::u16string_view criterion, std::int32_t skip = 0) = 0;

    /// The current record's value, a pending one included; names are found without regard to
    /// case, of columns with one name the first. Valid until the record set is next written,
    /// re-read or closed. Fails with itemNotFound for a name it has not, noCurrentRecord without
    /// a current record.
    [[nodiscard]] virtual ValueView field(std::u16string_view name) const = 0;
    /// Holds `value` for update. A value equal to the one read (same kind, and for text the
    /// same characters) changes nothing; in a new record every value set is sent, Null too. An
    /// unpaired surrogate becomes U+FFFD, as no database keeps one. Fails as field does.
    virtual void setField(std::u16string_view name, const Value &value) = 0;

    /// Makes a pending new record the current one; a value that is not set is the database's
    /// and reads as Null.
    virtual void addNew() = 0;
    /// Sends the pending change: only the columns set, and only where the row still holds what
    /// was read in them. Nothing pending: nothing is sent. A new record becomes the last one and
    /// the current one; the key that the database gave it is known then, its defaults only after
    /// resync. Fails with the provider's number when the database refuses, and with
    /// rowChangedByAnother when another writer changed these columns or removed the row first;
    /// nothing is written then, and the change stays pending until a move discards it.
    virtual void update() = 0;
    /// Removes the current row from the table, but only where it still holds what was read, in
    /// every column that the record set has of it (of a new record, before resync: in those that
    /// were set). It counts no more, moves skip it and its fields cannot be read. What is pending
    /// in it is discarded. Fails with noCurrentRecord on a pending new record, with the provider's
    /// number when the database refuses, and with rowChangedByAnother when another writer changed
    /// or removed the row first; nothing is removed then, the record stays, and what is pending in
    /// it stays pending.
    virtual void deleteCurrent() = 0;
    /// Reads the current record's values again from the database, by its key, and discards what
    /// is pending in it; values that the query computes stay. Fails with noCurrentRecord on a
    /// pending new record, with rowChangedByAnother when the row is gone, and with the provider's
    /// number when the database refuses; the record then stays as it was.
    virtual void resyncCurrent() = 0;
};

/// A write or resync that met a row which is gone or not as it was read. Only resync, or a record
/// set opened anew, takes over what another wrote: repeating the write fails again.
inline constexpr std::int32_t rowChangedByAnother = -2147217864;

} // namespace kvex

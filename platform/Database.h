// The database as the component uses it: a connection and client-side record sets.
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
/// The value "unspecified" for the options of both open functions.
inline constexpr std::int32_t unspecifiedOptions = -1;

/// One connection to one database.
class Connection {
public:
    virtual ~Connection() = default;

    /// Opens the database that `connectionString` names; it never creates one. `userId` and
    /// `password` apply when the string has none; empty ones are not sent.
    ///
    /// After a failure the connection is as it was before the call. The errors:
    /// - objectOpen: the connection is open already.
    /// - badArgument: the string names no known provider or no database.
    /// - the provider's negative number: the database refuses.
    virtual void open(std::u16string_view connectionString, std::u16string_view userId = {},
                      std::u16string_view password = {},
                      std::int32_t options = unspecifiedOptions) = 0;
    [[nodiscard]] virtual ObjectState state() const = 0;
    /// Closes the connection, and rolls a transaction back first. Its record sets stay readable;
    /// opening the connection again does not reconnect them. Fails with objectClosed when the
    /// connection is not open.
    virtual void close() = 0;

    /// Begins a transaction: from now on the writes of the connection's record sets wait for
    /// commitTransaction. Roll back after a write that fails: some databases then accept no other
    /// write, and some have undone all of them. Transactions cannot be nested; Transaction.h ends
    /// one safely.
    ///
    /// The errors:
    /// - objectClosed: the connection is not open.
    /// - the provider's number: the database refuses.
    virtual void beginTransaction() = 0;
    /// Stores all writes since beginTransaction. After a failure none is stored, and
    /// rollbackTransaction must follow.
    ///
    /// The errors:
    /// - noConnection: the exception. All writes are stored, or none; nobody knows which.
    /// - the provider's number: the database refuses.
    virtual void commitTransaction() = 0;
    /// Undoes all writes since beginTransaction. The record sets hold again what they held then; a
    /// change that was pending stays pending. Does nothing without a transaction.
    virtual void rollbackTransaction() noexcept = 0;
};

/// The rows of one query, with a current record. The set reads all rows when it is opened.
///
/// While it is closed, every call except state, setCursorLocation and open fails with objectClosed.
/// It stays readable after its connection has closed; a write or resync then fails with
/// objectClosed.
///
/// When the database refuses a write or resync, the description of the error says what was not
/// done, then why. It begins like this: "The change of record ID 3 was not stored." What the user
/// can do follows from the error's help context.
///
/// Rows can be written when the query reads one table with a primary key and has each key column
/// once. The lock must not be readOnly, and the tables not newer than this program. Any other write
/// fails with badArgument, and so does a write to a column that the query computes.
class Recordset {
public:
    virtual ~Recordset() = default;

    /// Says where the rows are kept. `server` is accepted, but treated as `client`. Fails with
    /// objectOpen while the set is open.
    virtual void setCursorLocation(CursorLocation location) = 0;
    /// Runs `source` on `connection`, reads every row and moves to the first one. With every cursor
    /// type the set is a copy of the rows as they are now.
    ///
    /// After a failure the set is as it was before the call. The errors:
    /// - objectOpen: the set is open already.
    /// - objectClosed: the connection is not open.
    /// - badArgument: the statement gives no rows. It is not run.
    /// - the provider's number: the database refuses.
    virtual void open(std::u16string_view source, Connection &connection,
                      CursorType cursor = CursorType::forwardOnly,
                      LockType lock = LockType::readOnly,
                      std::int32_t options = unspecifiedOptions) = 0;
    [[nodiscard]] virtual ObjectState state() const = 0;
    /// Drops the rows and any pending change.
    virtual void close() = 0;

    /// Both are true for an empty set. Both are false on a pending new record, and on a removed
    /// record until the next move.
    [[nodiscard]] virtual bool bof() const = 0;
    [[nodiscard]] virtual bool eof() const = 0;
    /// The number of rows without removed records and without a pending new one.
    [[nodiscard]] virtual std::int32_t recordCount() const = 0;

    /// Every move, every find and addNew discards a pending change, even when the call then fails:
    /// only update writes. After a discarded new record, the call starts from the record that was
    /// the current one before addNew. In an empty set moveFirst stays at eof without an error.
    virtual void moveFirst() = 0;
    /// Reaches eof after the last record. At eof it fails with noCurrentRecord.
    virtual void moveNext() = 0;
    /// Searches forward for `COLUMN = number` or `COLUMN = 'text'`. It starts at the current record
    /// and first skips `skip` records. It ends at eof when no record matches, or when it starts
    /// there. A number matches only numbers, a text only texts. Case does not matter in texts;
    /// trailing blanks do. The search for a number in a column of integers uses an index.
    ///
    /// After a failure the current record is the same. The errors:
    /// - badArgument: the criterion cannot be read, for example because its text contains an
    ///   apostrophe; or `skip` is negative.
    /// - itemNotFound: the set has no such column.
    virtual void find(std::u16string_view criterion, std::int32_t skip = 0) = 0;

    /// The value of the current record, or the pending value where there is one. It is valid until
    /// the record set is next written, re-read or closed. The case of names does not matter. The
    /// first of several columns with the same name counts. Fails with itemNotFound for an unknown
    /// name, and with noCurrentRecord without a current record.
    [[nodiscard]] virtual ValueView field(std::u16string_view name) const = 0;
    /// Keeps `value` as a pending change for update. A value that equals the one read is no change.
    /// Equal values have the same kind, and the same number or the same characters. A new record
    /// sends every value that was set, even Null. An unpaired surrogate becomes U+FFFD, because no
    /// database keeps one. Fails as field does.
    virtual void setField(std::u16string_view name, const Value &value) = 0;

    /// Fails with badArgument when the rows cannot be written, as update would. So a caller can
    /// learn it before the user changes anything. With the help context newerSchema, the tables are
    /// newer than this program, which only reads them. It asks the database for the table's key,
    /// which the first write need not do then. The other errors: the provider's number when the
    /// database refuses, and objectClosed when the connection has closed.
    virtual void requireWritable() = 0;
    /// Makes a pending new record the current one. The database fills the columns that are not
    /// set; they read as Null until resync.
    virtual void addNew() = 0;
    /// Writes the pending change. It sends only the changed columns, and the row must still hold
    /// the values that were read in them. Without a pending change it sends nothing. A new record
    /// becomes the last one and the current one. Its key is known from then on, its defaults only
    /// after resync.
    ///
    /// After a failure nothing is written. The change stays pending until a move discards it.
    /// The errors:
    /// - the provider's number: the database refuses.
    /// - rowChangedByAnother: another writer changed these columns or removed the row. With the
    ///   help context valueNotKept: a column holds a value that cannot be read unchanged.
    virtual void update() = 0;
    /// Removes the current row from the table, and discards its pending change. The row must still
    /// hold the values that were read, in every column of the set. For a new record, before resync,
    /// only the columns that were set count. The record no longer counts, moves skip it, and its
    /// fields cannot be read.
    ///
    /// After a failure nothing is removed: the record stays, and its change stays pending. The
    /// errors:
    /// - noCurrentRecord: there is no current record, or it is a pending new one.
    /// - the provider's number: the database refuses.
    /// - rowChangedByAnother: another writer changed or removed the row. With the help context
    ///   valueNotKept: the row holds a value that cannot be read unchanged.
    virtual void deleteCurrent() = 0;
    /// Reads the values of the current record again from the database, by its key. It discards the
    /// pending change. Values that the query computes stay as they are.
    ///
    /// After a failure the record is unchanged. The errors:
    /// - noCurrentRecord: there is no current record, or it is a pending new one.
    /// - rowChangedByAnother: the row is gone.
    /// - the provider's number: the database refuses.
    virtual void resyncCurrent() = 0;
};

/// The row of a write or resync is gone, or no longer holds what was read. A repeated write fails
/// again: only resync, or a newly opened record set, reads what the other writer stored.
inline constexpr std::int32_t rowChangedByAnother = -2147217864;
/// The connection to the database cannot be made, or it broke. A broken one stays broken.
inline constexpr std::int32_t noConnection = -2147467259;

} // namespace kvex

// A transaction: several writes on one connection are stored together or not at all.
#pragma once

#include "platform/Database.h"

namespace kvex {

/// From its construction on, all writes of the connection's record sets wait for commit. The
/// destructor rolls them back when there was no commit. The connection must outlive the object. On
/// SQLite, other connections cannot write meanwhile.
class Transaction {
public:
    /// Fails as Connection::beginTransaction does.
    explicit Transaction(Connection &connection) : connection_(connection) {
        connection_.beginTransaction();
    }
    ~Transaction() {
        if (!committed_) {
            connection_.rollbackTransaction();
        }
    }
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    /// Fails as Connection::commitTransaction does.
    void commit() {
        connection_.commitTransaction();
        committed_ = true;
    }

private:
    Connection &connection_;
    bool committed_ = false;
};

} // namespace kvex

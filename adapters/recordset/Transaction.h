// A transaction: several writes on one connection are stored together or not at all.
#pragma once

#include "adapters/recordset/ClientConnection.h"

#include <memory>

namespace kvex::recordset {

/// From its construction on, all writes through the connection and its record sets wait for commit.
/// The destructor undoes them when there was no commit. On SQLite, other connections cannot write
/// meanwhile.
class Transaction {
public:
    /// Fails with objectClosed when the connection is not open, and with the provider's number when
    /// the database refuses.
    explicit Transaction(const ClientConnection &connection) : driver_(connection.driver().lock()) {
        driver_->begin();
    }
    ~Transaction() {
        if (driver_) {
            driver_->rollback();
        }
    }
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    /// Call it once. Fails with the provider's number when the database refuses. The writes are
    /// then undone at the latest when this object is destroyed.
    void commit() {
        driver_->commit();
        driver_.reset();
    }

private:
    std::shared_ptr<Driver> driver_;
};

} // namespace kvex::recordset

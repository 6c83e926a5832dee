// Several writes on one connection that are stored together or not at all.
#pragma once

#include "adapters/recordset/ClientConnection.h"

#include <memory>

namespace kvex::recordset {

/// From its construction on the writes through the connection, those of its record sets too, wait
/// for commit; destroyed without one it undoes them. Nobody else writes the database meanwhile.
class Transaction {
public:
    /// Fails with objectClosed when the connection is not open, and with the provider's number
    /// when the database refuses.
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

    /// Once. Fails with the provider's number; what was written is undone then at the latest when
    /// this goes.
    void commit() {
        driver_->commit();
        driver_.reset();
    }

private:
    std::shared_ptr<Driver> driver_;
};

} // namespace kvex::recordset

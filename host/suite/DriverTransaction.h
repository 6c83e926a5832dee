// A transaction on a database's driver, for statements that no record set makes.
#pragma once

#include "adapters/recordset/Driver.h"

namespace kvex::host {

/// Construct it, then call one of the driver's begin functions. The destructor rolls back when
/// there was no commit. The driver must outlive the object.
class DriverTransaction {
public:
    explicit DriverTransaction(recordset::Driver &driver) : driver_(driver) {}
    ~DriverTransaction() {
        if (!committed_) {
            driver_.rollback();
        }
    }
    DriverTransaction(const DriverTransaction &) = delete;
    DriverTransaction &operator=(const DriverTransaction &) = delete;

    /// Fails as the driver's commit does.
    void commit() {
        driver_.commit();
        committed_ = true;
    }

private:
    recordset::Driver &driver_;
    bool committed_ = false;
};

} // namespace kvex::host

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

/// While it lives, all queries of the driver see one state of the database, whatever other programs
/// store. The driver must outlive the object. Fails as beginSnapshot does.
class Snapshot {
public:
    explicit Snapshot(recordset::Driver &driver) : reading_(driver) { driver.beginSnapshot(); }

private:
    DriverTransaction reading_;
};

} // namespace kvex::host

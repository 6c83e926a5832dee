// An open database: what a connection and its record sets share.
#pragma once

#include "adapters/recordset/Driver.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kvex::recordset {

/// Owns the driver, and knows how to undo in the record sets what a transaction has written.
class OpenDatabase {
public:
    /// `readOnlyReason` says why no record set may write; "" when they may.
    explicit OpenDatabase(std::unique_ptr<Driver> driver, std::u16string readOnlyReason)
        : driver_(std::move(driver)), readOnlyReason_(std::move(readOnlyReason)) {}
    ~OpenDatabase() { rollback(); }
    OpenDatabase(const OpenDatabase &) = delete;
    OpenDatabase &operator=(const OpenDatabase &) = delete;

    [[nodiscard]] Driver &driver() const noexcept { return *driver_; }
    [[nodiscard]] const std::u16string &readOnlyReason() const noexcept { return readOnlyReason_; }
    /// Fails with badArgument and the help context newerSchema when there is a readOnlyReason.
    void requireWritable() const;
    [[nodiscard]] bool inTransaction() const noexcept { return inTransaction_; }

    /// These fail as the driver's calls do. Do not begin a transaction within another.
    void begin();
    void commit();
    /// Does nothing without a transaction.
    void rollback() noexcept;

    /// Undoes one write in its record set. It must not fail, and must do nothing once the record
    /// set is closed.
    using Undo = std::function<void()>;
    /// Makes room for `undo`. Call it before the write, because nothing may fail after it.
    void prepare(Undo undo);
    /// Keeps the undo that was prepared: its write was done.
    void keepPrepared() noexcept;

private:
    std::unique_ptr<Driver> driver_;
    std::u16string readOnlyReason_;
    bool inTransaction_ = false;
    std::vector<Undo> undos_;
    /// The number of undos without one that is only prepared.
    std::size_t kept_ = 0;
};

} // namespace kvex::recordset

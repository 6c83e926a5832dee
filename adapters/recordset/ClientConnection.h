// The connection for every kind of database: it chooses the provider and owns the open database.
#pragma once

#include "adapters/recordset/OpenDatabase.h"
#include "platform/Database.h"

#include <memory>
#include <vector>

namespace kvex::recordset {

/// A connection to tables that are newer than this program knows is for reading only. Every write
/// of its record sets fails with badArgument and the help context newerSchema.
class ClientConnection final : public Connection {
public:
    /// The first provider that accepts a connection string opens it.
    explicit ClientConnection(std::vector<Provider> providers) : providers_(std::move(providers)) {}

    void open(std::u16string_view connectionString, std::u16string_view userId,
              std::u16string_view password, std::int32_t options) override;
    [[nodiscard]] ObjectState state() const override;
    void close() override;
    void beginTransaction() override { open().begin(); }
    void commitTransaction() override { open().commit(); }
    void rollbackTransaction() noexcept override;

    /// For the record sets on this connection. It expires when the connection closes. Fails with
    /// objectClosed when the connection is not open.
    [[nodiscard]] std::weak_ptr<OpenDatabase> database() const;
    /// Why the connection opened for reading only, as a sentence; "" when it can write. Fails with
    /// objectClosed when the connection is not open.
    [[nodiscard]] const std::u16string &readOnlyReason() const { return open().readOnlyReason(); }
    /// The database's driver. It expires and fails as database does.
    [[nodiscard]] std::weak_ptr<Driver> driver() const;

private:
    [[nodiscard]] const Provider &providerOf(const ConnectionString &connectionString) const;

    /// Fails with objectClosed when the connection is not open.
    [[nodiscard]] OpenDatabase &open() const;

    std::vector<Provider> providers_;
    std::shared_ptr<OpenDatabase> database_;
};

} // namespace kvex::recordset

#include "adapters/recordset/ClientConnection.h"

#include "adapters/recordset/SchemaVersion.h"
#include "platform/Error.h"

#include <algorithm>
#include <utility>

namespace kvex::recordset {
namespace {

void addCredential(ConnectionString &connectionString, std::u16string_view key,
                   std::u16string_view longKey, std::u16string_view value) {
    if (!value.empty() && !connectionString.has(key) && !connectionString.has(longKey)) {
        connectionString.add(key, value);
    }
}

} // namespace

void ClientConnection::open(std::u16string_view connectionString, std::u16string_view userId,
                            std::u16string_view password, std::int32_t /*options*/) {
    if (database_) {
        throw Error(error_number::objectOpen);
    }
    ConnectionString parsed(connectionString);
    addCredential(parsed, u"UID", u"User ID", userId);
    addCredential(parsed, u"PWD", u"Password", password);
    std::unique_ptr<Driver> driver = providerOf(parsed).connect(parsed);
    std::u16string reason = recordset::readOnlyReason(schemaVersion(*driver));
    database_ = std::make_shared<OpenDatabase>(std::move(driver), std::move(reason));
}

ObjectState ClientConnection::state() const {
    return database_ ? ObjectState::open : ObjectState::closed;
}

void ClientConnection::close() {
    static_cast<void>(open());
    database_.reset();
}

void ClientConnection::rollbackTransaction() noexcept {
    if (database_) {
        database_->rollback();
    }
}

std::weak_ptr<OpenDatabase> ClientConnection::database() const {
    static_cast<void>(open());
    return database_;
}

std::weak_ptr<Driver> ClientConnection::driver() const {
    return std::shared_ptr<Driver>(database_, &open().driver());
}

OpenDatabase &ClientConnection::open() const {
    if (!database_) {
        throw Error(error_number::objectClosed);
    }
    return *database_;
}

const Provider &ClientConnection::providerOf(const ConnectionString &connectionString) const {
    const auto found = std::ranges::find_if(
        providers_, [&](const Provider &provider) { return provider.accepts(connectionString); });
    if (found != providers_.end()) {
        return *found;
    }
    std::u16string forms;
    for (const Provider &provider : providers_) {
        forms.append(forms.empty() ? u"" : u", or ").append(provider.form);
    }
    throw Error(error_number::badArgument,
                u"The connection string names no database that this program can open. Its forms "
                u"are: " +
                    forms + u".");
}

} // namespace kvex::recordset

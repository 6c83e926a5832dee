#include "adapters/recordset/ClientConnection.h"

#include "platform/Error.h"

#include <algorithm>

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
    if (driver_) {
        throw Error(error_number::objectOpen);
    }
    ConnectionString parsed(connectionString);
    addCredential(parsed, u"UID", u"User ID", userId);
    addCredential(parsed, u"PWD", u"Password", password);
    driver_ = providerOf(parsed).connect(parsed);
}

ObjectState ClientConnection::state() const {
    return driver_ ? ObjectState::open : ObjectState::closed;
}

void ClientConnection::close() {
    if (!driver_) {
        throw Error(error_number::objectClosed);
    }
    driver_.reset();
}

std::weak_ptr<Driver> ClientConnection::driver() const {
    if (!driver_) {
        throw Error(error_number::objectClosed);
    }
    return driver_;
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

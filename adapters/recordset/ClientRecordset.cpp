#include "adapters/recordset/ClientRecordset.h"

#include "adapters/recordset/ClientConnection.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <utility>

namespace kvex::recordset {
namespace {

/// `value` as a database stores it. No database keeps an unpaired surrogate, so the record set must
/// not show one either.
Value storable(const Value &value) {
    if (const auto *text = std::get_if<std::u16string>(&value)) {
        return fromUtf8(toUtf8(*text));
    }
    return value;
}

auto &required(auto &opened) {
    if (!opened) {
        throw Error(error_number::objectClosed);
    }
    return *opened;
}

} // namespace

void ClientRecordset::setCursorLocation(CursorLocation /*location*/) {
    if (opened_) {
        throw Error(error_number::objectOpen);
    }
}

void ClientRecordset::open(std::u16string_view source, Connection &connection,
                           CursorType /*cursor*/, LockType lock, std::int32_t /*options*/) {
    if (opened_) {
        throw Error(error_number::objectOpen);
    }
    const auto *client = dynamic_cast<const ClientConnection *>(&connection);
    if (!client) {
        throw Error(error_number::badArgument);
    }
    std::weak_ptr<OpenDatabase> database = client->database();
    RowStore rows;
    const Statement query{std::u16string(source), {}};
    database.lock()->driver().query(query, rows);
    opened_.emplace(OpenRows{.cursor = std::make_shared<ClientCursor>(std::move(rows)),
                             .database = std::move(database),
                             .source = query.text,
                             .lock = lock,
                             .changes = {},
                             .base = {}});
}

ObjectState ClientRecordset::state() const {
    return opened_ ? ObjectState::open : ObjectState::closed;
}

void ClientRecordset::close() {
    static_cast<void>(opened());
    opened_.reset();
}

bool ClientRecordset::bof() const {
    return eof() && opened().cursor->count() == 0;
}

bool ClientRecordset::eof() const {
    return !opened().isNew && opened().cursor->atEnd();
}

std::int32_t ClientRecordset::recordCount() const {
    return static_cast<std::int32_t>(opened().cursor->count());
}

void ClientRecordset::moveFirst() {
    opened().discardPending();
    opened().cursor->moveFirst();
}

void ClientRecordset::moveNext() {
    opened().discardPending();
    opened().cursor->moveNext();
}

void ClientRecordset::find(std::u16string_view criterion, std::int32_t skip) {
    opened().discardPending();
    if (skip < 0) {
        throw Error(error_number::badArgument);
    }
    opened().cursor->find(FindCriterion(criterion), static_cast<std::size_t>(skip));
}

ValueView ClientRecordset::field(std::u16string_view name) const {
    const OpenRows &open = opened();
    const std::size_t column = open.cursor->columnOf(name);
    if (!open.isNew) {
        open.cursor->requireCurrent();
    }
    const auto pending = open.changes.find(column);
    if (pending != open.changes.end()) {
        return viewOf(pending->second);
    }
    return open.isNew ? ValueView() : open.cursor->value(column);
}

void ClientRecordset::setField(std::u16string_view name, const Value &value) {
    OpenRows &open = opened();
    const std::size_t column = open.cursor->columnOf(name);
    if (!open.isNew) {
        open.cursor->requireCurrent();
    }
    Value stored = storable(value);
    if (!open.isNew && open.cursor->value(column).held() == viewOf(stored).held()) {
        open.changes.erase(column);
    } else {
        open.changes.insert_or_assign(column, std::move(stored));
    }
}

void ClientRecordset::requireWritable() {
    OpenRows &open = opened();
    static_cast<void>(open.writable(*open.connected()));
}

void ClientRecordset::addNew() {
    opened().discardPending();
    opened().isNew = true;
}

void ClientRecordset::update() {
    OpenRows &open = opened();
    if (open.isNew) {
        open.insert();
    } else if (!open.changes.empty()) {
        open.write();
    }
}

void ClientRecordset::deleteCurrent() {
    OpenRows &open = opened();
    open.requireRow();
    open.remove();
}

void ClientRecordset::resyncCurrent() {
    opened().requireRow();
    opened().resync();
}

const OpenRows &ClientRecordset::opened() const {
    return required(opened_);
}

OpenRows &ClientRecordset::opened() {
    return required(opened_);
}

} // namespace kvex::recordset

#include "tests/recordset/ScriptedSession.h"

#include "adapters/recordset/RowStatements.h"
#include "platform/Text.h"

#include <utility>

namespace kvex::test {
namespace {

using recordset::Assignment;
using recordset::Column;
using recordset::Driver;
using recordset::RowSink;
using recordset::Statement;

struct Deliver {
    RowSink &sink;

    void operator()(Null /*null*/) const { sink.null(); }
    void operator()(std::int64_t number) const { sink.integer(number); }
    void operator()(double number) const { sink.number(number); }
    void operator()(const std::u16string &text) const { sink.text(text); }
};

class ScriptedDriver final : public Driver {
public:
    explicit ScriptedDriver(std::shared_ptr<Script> script) : script_(std::move(script)) {}

    void query(const Statement &statement, RowSink &sink) override {
        receive(shown(statement));
        sink.columns(script_->columns);
        for (const std::vector<Value> &row : script_->rows) {
            for (const Value &value : row) {
                std::visit(Deliver{sink}, value);
            }
        }
    }
    void describe(const std::u16string &query, std::vector<Column> &columns) override {
        receive(u"describe " + query);
        columns = script_->described.value_or(columns);
    }
    std::int64_t execute(const Statement &statement) override {
        receive(shown(statement));
        return script_->met;
    }
    std::vector<Value> insert(std::u16string_view table, const std::vector<Assignment> &values,
                              const std::vector<std::u16string_view> &keyColumns) override {
        Statement insertion{u"INSERT " + std::u16string(table) + u" ", {}};
        std::vector<std::u16string_view> columns;
        for (const Assignment &value : values) {
            columns.push_back(value.column);
            insertion.parameters.push_back(value.value);
        }
        insertion.text.append(recordset::listed(columns)).append(u" GIVING ");
        insertion.text.append(recordset::listed(keyColumns));
        // Copies each text before its Value is made: in some standard libraries, the copy of a
        // variant is undefined when memory fails.
        std::vector<Value> key;
        key.reserve(script_->key.size());
        for (const Value &part : script_->key) {
            key.push_back(std::visit([](auto held) { return Value(std::move(held)); }, part));
        }
        // The change was stored when it was sent, so nothing may fail afterwards.
        receive(shown(insertion));
        return key;
    }
    [[nodiscard]] std::u16string stillHolds(std::u16string_view column,
                                            const ValueView & /*read*/) const override {
        return u"HOLDS(" + std::u16string(column) + u", ?)";
    }
    [[nodiscard]] recordset::ColumnTypes columnTypes() const override { return script_->types; }
    [[nodiscard]] std::vector<std::u16string> columnsOf(std::u16string_view table) override {
        const auto found = script_->tables.find(table);
        return found == script_->tables.end() ? std::vector<std::u16string>() : found->second;
    }
    [[nodiscard]] bool lacks(std::u16string_view table) override {
        return !script_->tables.contains(table);
    }
    void begin() override {
        receive(u"begin");
        script_->begun();
    }
    void commit() override { receive(u"commit"); }
    void rollback() noexcept override { script_->sent.emplace_back(u"rollback"); }

private:
    void receive(std::u16string text) {
        script_->sent.push_back(std::move(text));
        if (script_->refusal) {
            throw Error(*script_->refusal);
        }
    }

    std::shared_ptr<Script> script_;
};

} // namespace

std::u16string shown(const ValueView &value) {
    if (value.isNull()) {
        return u"Null";
    }
    const bool isText = std::holds_alternative<std::u16string_view>(value.held());
    return isText ? u"'" + value.text() + u"'" : value.text();
}

std::u16string shown(const Statement &statement) {
    std::u16string text = statement.text + u" [";
    std::u16string_view separator;
    for (const ValueView &parameter : statement.parameters) {
        text.append(separator).append(shown(parameter));
        separator = u", ";
    }
    return text + u"]";
}

ScriptedSession::ScriptedSession(Script first)
    : script_(std::make_shared<Script>(std::move(first))),
      connection_({{u"", [](const recordset::ConnectionString &) { return true; },
                    [script = script_](const recordset::ConnectionString &) {
                        return std::make_unique<ScriptedDriver>(script);
                    }}}) {
    static_cast<Connection &>(connection_).open(u"x");
}

std::unique_ptr<Recordset> ScriptedSession::records(LockType lock) {
    std::unique_ptr<Recordset> records = std::make_unique<recordset::ClientRecordset>();
    records->open(u"QUERY", connection_, CursorType::dynamic, lock);
    script_->sent.clear();
    return records;
}

std::vector<Column> columnsOfT() {
    return {{u"ID", u"T", u"ID", 1}, {u"A", u"T", u"A", 0}, {u"B", u"T", u"B", 0}};
}

} // namespace kvex::test

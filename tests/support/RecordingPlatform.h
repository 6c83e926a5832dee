// A platform of strict fakes. It records each call of the component with all arguments, and can
// make any call fail. It has no database; every record set is empty.
#pragma once

#include "platform/Platform.h"
#include "platform/Text.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kvex::test {

/// Outlives the platform's objects.
struct PlatformCalls {
    std::vector<std::string> made;
    /// The call that fails, in its recorded form. With "*" at its end, every call that begins so
    /// fails.
    std::string failing;

    void make(const std::string &call) {
        made.push_back(call);
        const bool fails = failing.ends_with('*')
                               ? call.starts_with(failing.substr(0, failing.size() - 1))
                               : call == failing;
        if (fails) {
            throw Error(error_number::automationError);
        }
    }
    /// The calls since the last `take`.
    [[nodiscard]] std::vector<std::string> take() { return std::exchange(made, {}); }
};

/// Records each call as "NAME.OPERATION" and its arguments.
class RecordedObject {
public:
    RecordedObject(PlatformCalls &calls, std::string name) : calls_(calls), name_(std::move(name)) {
        calls_.make("create " + name_);
    }
    RecordedObject(const RecordedObject &) = delete;
    RecordedObject &operator=(const RecordedObject &) = delete;

protected:
    ~RecordedObject() { calls_.made.push_back("release " + name_); }
    template <class... Arguments> void make(const char *operation, const Arguments &...arguments) {
        std::string call = name_ + "." + operation;
        ((call += " " + shown(arguments)), ...);
        calls_.make(call);
    }

private:
    static std::string shown(std::u16string_view text) { return "'" + toUtf8(text) + "'"; }
    static std::string shown(std::int32_t number) { return std::to_string(number); }
    static std::string shown(const std::string &name) { return name; }

    PlatformCalls &calls_;
    std::string name_;
};

class RecordedUtility final : public Utility, private RecordedObject {
public:
    explicit RecordedUtility(PlatformCalls &calls) : RecordedObject(calls, "utility") {}

    std::u16string connectionString() override {
        make("connectionString");
        return u"DATABASE";
    }
    std::u16string secondText() override {
        make("secondText");
        return u"SECOND";
    }
    void writeErrorLog(std::u16string &logFile, const Error &error, const std::u16string &text,
                       std::int32_t reserved, std::int16_t flag) override {
        make("writeErrorLog", logFile, error.number(), text, reserved, std::int32_t{flag});
    }
    void reportMessage(std::u16string &logFile, const std::u16string &text, bool first,
                       bool second) override {
        make("reportMessage", logFile, text, std::int32_t{first}, std::int32_t{second});
    }
    std::int32_t showMessageBox(const std::u16string &text, std::int32_t style) override {
        make("showMessageBox", text, style);
        return message_box::no;
    }
};

class RecordedConnection final : public Connection, private RecordedObject {
public:
    explicit RecordedConnection(PlatformCalls &calls) : RecordedObject(calls, "connection") {}

    void open(std::u16string_view connectionString, std::u16string_view userId,
              std::u16string_view password, std::int32_t options) override {
        make("open", connectionString, userId, password, options);
        if (state_ == ObjectState::open) {
            throw Error(error_number::objectOpen);
        }
        state_ = ObjectState::open;
    }
    [[nodiscard]] ObjectState state() const override {
        const_cast<RecordedConnection *>(this)->make("state");
        return state_;
    }
    void close() override {
        make("close");
        state_ = ObjectState::closed;
    }
    void beginTransaction() override { make("beginTransaction"); }
    void commitTransaction() override { make("commitTransaction"); }
    void rollbackTransaction() noexcept override { make("rollbackTransaction"); }

private:
    ObjectState state_ = ObjectState::closed;
};

/// Records every call. Calls that a session on an empty database never makes fail, too.
class RecordedRecordset final : public Recordset, private RecordedObject {
public:
    RecordedRecordset(PlatformCalls &calls, int number)
        : RecordedObject(calls, "recordset " + std::to_string(number)) {}

    void setCursorLocation(CursorLocation location) override {
        make("cursorLocation", static_cast<std::int32_t>(location));
    }
    void open(std::u16string_view source, Connection &connection, CursorType cursor, LockType lock,
              std::int32_t options) override {
        const bool isOurs = dynamic_cast<RecordedConnection *>(&connection) != nullptr;
        make("open", source, std::string(isOurs ? "connection" : "?"),
             static_cast<std::int32_t>(cursor), static_cast<std::int32_t>(lock), options);
        state_ = ObjectState::open;
    }
    [[nodiscard]] ObjectState state() const override {
        asked("state");
        return state_;
    }
    void close() override {
        make("close");
        state_ = ObjectState::closed;
    }
    [[nodiscard]] bool bof() const override { return asked("bof"); }
    [[nodiscard]] bool eof() const override { return asked("eof"); }
    [[nodiscard]] std::int32_t recordCount() const override {
        asked("recordCount");
        return 0;
    }
    void moveFirst() override { make("moveFirst"); }
    void moveNext() override { refuse("moveNext"); }
    void find(std::u16string_view criterion, std::int32_t skip) override {
        make("find", criterion, skip);
    }
    [[nodiscard]] ValueView field(std::u16string_view name) const override {
        const_cast<RecordedRecordset *>(this)->make("field", name);
        return ValueView();
    }
    void setField(std::u16string_view name, const Value & /*value*/) override {
        make("setField", name);
        throw Error(error_number::noCurrentRecord);
    }
    void requireWritable() override { make("requireWritable"); }
    void addNew() override { refuse("addNew"); }
    void update() override { refuse("update"); }
    void deleteCurrent() override { refuse("deleteCurrent"); }
    void resyncCurrent() override { refuse("resyncCurrent"); }

private:
    bool asked(const char *question) const {
        const_cast<RecordedRecordset *>(this)->make(question);
        return true;
    }
    void refuse(const char *operation) {
        make(operation);
        throw Error(error_number::noCurrentRecord);
    }

    ObjectState state_ = ObjectState::closed;
};

class RecordingPlatform final : public Platform {
public:
    explicit RecordingPlatform(Toolkit &toolkit) : toolkit_(toolkit) {}

    std::unique_ptr<Utility> createUtility() override {
        return std::make_unique<RecordedUtility>(calls);
    }
    std::unique_ptr<Connection> createConnection() override {
        return std::make_unique<RecordedConnection>(calls);
    }
    std::unique_ptr<Recordset> createRecordset() override {
        return std::make_unique<RecordedRecordset>(calls, ++recordsets_);
    }
    std::unique_ptr<AddressBook> createAddressBook() override {
        calls.make("create address book");
        return nullptr;
    }
    Toolkit &toolkit() override {
        calls.make("toolkit");
        return toolkit_;
    }
    std::u16string componentDirectory() override {
        calls.make("componentDirectory");
        return u"FOLDER";
    }

    PlatformCalls calls;

private:
    Toolkit &toolkit_;
    int recordsets_ = 0;
};

} // namespace kvex::test

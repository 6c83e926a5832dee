#include "adapters/odbc/OdbcConnection.h"

#include "adapters/odbc/ConnectionText.h"
#include "adapters/odbc/Provider.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cwchar>
#include <string_view>
#include <vector>

namespace kvex::odbc {
namespace {

SQLPOINTER number(std::uintptr_t value) {
    return reinterpret_cast<SQLPOINTER>(value); // NOLINT(performance-no-int-to-ptr)
}

Handle<SQL_HANDLE_ENV> environment() {
    Handle<SQL_HANDLE_ENV> made(nullptr, 0);
    made.check(SQLSetEnvAttr(made.get(), SQL_ATTR_ODBC_VERSION, number(SQL_OV_ODBC3), 0));
    return made;
}

/// False when the user chose another character set for the driver.
bool speaksUtf8(const recordset::ConnectionString &text) {
    return !text.has(u"CHARSET") || foldCase(text.value(u"CHARSET")).starts_with(u"utf8");
}

bool localeSpeaksUtf8() {
    constexpr std::string_view character = "\xE0\xA4\x95";
    std::mbstate_t state{};
    wchar_t read = 0;
    return std::mbrtowc(&read, character.data(), character.size(), &state) == character.size() &&
           read == L'\u0915';
}

/// A short value of the first row that the statement returns; "" when it returns no row.
std::u16string firstValue(const OdbcConnection &connection, const char16_t *text,
                          SQLUSMALLINT column) {
    const Handle<SQL_HANDLE_STMT> query(connection.handle(), SQL_HANDLE_DBC);
    query.check(SQLExecDirectW(query.get(), wide(text), SQL_NTS));
    const SQLRETURN row = SQLFetch(query.get());
    if (row == SQL_NO_DATA) {
        return {};
    }
    query.check(row);
    std::array<SQLWCHAR, 64> value{};
    SQLLEN length = 0;
    query.check(SQLGetData(query.get(), column, SQL_C_WCHAR, value.data(), sizeof value, &length));
    return {value.begin(), std::ranges::find(value, SQLWCHAR{0})};
}

} // namespace

std::string driverManagerVersion() {
    const Handle<SQL_HANDLE_ENV> owner = environment();
    const Handle<SQL_HANDLE_DBC> unconnected(owner.get(), SQL_HANDLE_ENV);
    std::array<SQLCHAR, 64> version{};
    unconnected.check(
        SQLGetInfo(unconnected.get(), SQL_DM_VER, version.data(), version.size(), nullptr));
    return {version.begin(), std::ranges::find(version, SQLCHAR{0})};
}

OdbcConnection::OdbcConnection(const recordset::ConnectionString &text)
    : environment_(environment()), connection_(environment_.get(), SQL_HANDLE_ENV),
      server_(ServerKind::of(u"", u"")) {
    // A driver that refuses these attributes works without them.
    const auto set = [this](SQLINTEGER attribute, int seconds) {
        SQLSetConnectAttrW(handle(), attribute, number(static_cast<std::uintptr_t>(seconds)),
                           SQL_IS_UINTEGER);
    };
    set(SQL_ATTR_LOGIN_TIMEOUT, loginTimeoutOf(text));
    set(SQL_ATTR_CONNECTION_TIMEOUT, timeoutOf(text));
    const std::vector<std::u16string> natives = nativeTexts(text);
    for (const std::u16string &native : natives) {
        try {
            connect(native);
            learnAbout(text);
            joinCluster();
            return;
        } catch (const Error &error) {
            SQLDisconnect(handle());
            if (error.number() != refusal::noConnection || &native == &natives.back()) {
                throw;
            }
        }
    }
}

void OdbcConnection::connect(const std::u16string &native) const {
    SQLSMALLINT length = 0;
    std::array<SQLWCHAR, 2> completed{};
    connection_.check(SQLDriverConnectW(handle(), nullptr, wide(native.c_str()),
                                        static_cast<SQLSMALLINT>(native.size()), completed.data(),
                                        static_cast<SQLSMALLINT>(completed.size()), &length,
                                        SQL_DRIVER_NOPROMPT));
}

void OdbcConnection::learnAbout(const recordset::ConnectionString &text) {
    server_ = ServerKind::of(info(SQL_DBMS_NAME), info(SQL_DBMS_VER));
    quote_ = info(SQL_IDENTIFIER_QUOTE_CHAR);
    if (quote_ == u" ") {
        quote_.clear();
    }
    if (info(SQL_DRIVER_NAME) == server_.utf8Driver && speaksUtf8(text) &&
        (!server_.utf8InUtf8Locales || localeSpeaksUtf8())) {
        utf8Texts_ = server_.utf8Texts;
    }
    SQLUINTEGER extensions = 0;
    constexpr SQLUINTEGER needed = SQL_GD_ANY_COLUMN | SQL_GD_BOUND;
    readsBoundAgain_ = SQL_SUCCEEDED(SQLGetInfoW(handle(), SQL_GETDATA_EXTENSIONS, &extensions,
                                                 sizeof extensions, nullptr)) &&
                       (extensions & needed) == needed;
}

void OdbcConnection::joinCluster() const {
    if (server_.name != u"MariaDB" ||
        firstValue(*this, u"SHOW GLOBAL VARIABLES LIKE 'wsrep_on'", 2) != u"ON") {
        return;
    }
    const Handle<SQL_HANDLE_STMT> wait(handle(), SQL_HANDLE_DBC);
    // From now on queries (1), changes and removals (2) wait for the other nodes' changes.
    wait.check(SQLExecDirectW(
        wait.get(), wide(u"SET SESSION wsrep_sync_wait = @@GLOBAL.wsrep_sync_wait | 3"), SQL_NTS));
    // A node without its cluster lets users in, but refuses their statements.
    try {
        static_cast<void>(firstValue(*this, u"SELECT 1", 1));
    } catch (const Error &error) {
        if (error.number() != refusal::timeout) {
            throw;
        }
        throw errorWith(refusal::noConnection, HelpContext::cutOff,
                        u"This node of the database's cluster is cut off from the others and takes "
                        u"no statements.");
    }
}

OdbcConnection::~OdbcConnection() {
    disconnect();
}

void OdbcConnection::disconnect() const noexcept {
    if (!SQL_SUCCEEDED(SQLDisconnect(handle()))) {
        SQLEndTran(SQL_HANDLE_DBC, handle(), SQL_ROLLBACK);
        SQLDisconnect(handle());
    }
}

std::u16string OdbcConnection::quoted(std::u16string_view identifier) const {
    if (quote_.empty()) {
        return std::u16string(identifier);
    }
    std::u16string result = quote_;
    for (const char16_t unit : identifier) {
        result.append(unit == quote_.front() ? 2 : 1, unit);
    }
    return result + quote_;
}

void OdbcConnection::setAutomaticCommit(bool on) const {
    connection_.check(SQLSetConnectAttrW(handle(), SQL_ATTR_AUTOCOMMIT,
                                         number(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF),
                                         SQL_IS_UINTEGER));
}

void OdbcConnection::isolate() const {
    connection_.check(SQLSetConnectAttrW(
        handle(), SQL_ATTR_TXN_ISOLATION,
        number(server_.repeatableReadIsSnapshot ? SQL_TXN_REPEATABLE_READ : SQL_TXN_SERIALIZABLE),
        SQL_IS_UINTEGER));
}

void OdbcConnection::end(SQLSMALLINT how) const {
    connection_.check(SQLEndTran(SQL_HANDLE_DBC, handle(), how));
}

std::u16string OdbcConnection::info(SQLUSMALLINT what) const {
    std::array<SQLWCHAR, 256> text{};
    SQLSMALLINT length = 0;
    connection_.check(SQLGetInfoW(handle(), what, text.data(), sizeof text, &length));
    return {text.begin(), std::ranges::find(text, SQLWCHAR{0})};
}

} // namespace kvex::odbc

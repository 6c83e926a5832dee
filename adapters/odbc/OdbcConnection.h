// An open connection through ODBC.
#pragma once

#include "adapters/odbc/Handles.h"
#include "adapters/odbc/ServerKind.h"
#include "adapters/recordset/ConnectionString.h"

#include <string>
#include <string_view>

namespace kvex::odbc {

class OdbcConnection {
public:
    /// Fails with badArgument for a timeout that is none, and with the provider's number.
    explicit OdbcConnection(const recordset::ConnectionString &text);
    ~OdbcConnection();
    OdbcConnection(const OdbcConnection &) = delete;
    OdbcConnection &operator=(const OdbcConnection &) = delete;

    [[nodiscard]] SQLHANDLE handle() const noexcept { return connection_.get(); }
    [[nodiscard]] const ServerKind &server() const noexcept { return server_; }
    [[nodiscard]] int timeout() const noexcept { return timeout_; }
    /// What the driver in use does of ServerKind::utf8Texts.
    [[nodiscard]] Utf8Texts utf8Texts() const noexcept { return utf8Texts_; }
    /// Whether SQLGetData gives the value of any column of a row, of a bound one too.
    [[nodiscard]] bool readsBoundAgain() const noexcept { return readsBoundAgain_; }
    /// An identifier as statements must write it.
    [[nodiscard]] std::u16string quoted(std::u16string_view identifier) const;

    void setAutomaticCommit(bool on) const;
    void end(SQLSMALLINT how) const;

private:
    [[nodiscard]] std::u16string info(SQLUSMALLINT what) const;

    int timeout_;
    Handle<SQL_HANDLE_ENV> environment_;
    Handle<SQL_HANDLE_DBC> connection_;
    ServerKind server_;
    std::u16string quote_;
    Utf8Texts utf8Texts_ = Utf8Texts::none;
    bool readsBoundAgain_ = false;
};

} // namespace kvex::odbc

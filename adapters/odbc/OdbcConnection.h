// An open connection through ODBC.
#pragma once

#include "adapters/odbc/Handles.h"
#include "adapters/odbc/ServerKind.h"
#include "adapters/recordset/ConnectionString.h"

#include <string>
#include <string_view>

namespace kvex::odbc {

/// On a node of a Galera cluster, its statements wait until the node has received what other nodes
/// have committed.
class OdbcConnection {
public:
    /// Tries the servers of the string in their order. A server that cannot be reached, or a node
    /// that its cluster has lost, is skipped; any other error ends the search and is thrown. When
    /// no server is left, throws the last one's error. Fails with badArgument for a bad timeout.
    explicit OdbcConnection(const recordset::ConnectionString &text);
    ~OdbcConnection();
    OdbcConnection(const OdbcConnection &) = delete;
    OdbcConnection &operator=(const OdbcConnection &) = delete;

    [[nodiscard]] SQLHANDLE handle() const noexcept { return connection_.get(); }
    [[nodiscard]] const ServerKind &server() const noexcept { return server_; }
    /// ServerKind::utf8Texts when it applies to the driver and the character set in use; else none.
    [[nodiscard]] Utf8Texts utf8Texts() const noexcept { return utf8Texts_; }
    /// SQLGetData reads every column of a row, also a bound one.
    [[nodiscard]] bool readsBoundAgain() const noexcept { return readsBoundAgain_; }
    /// The identifier in the server's quotation marks.
    [[nodiscard]] std::u16string quoted(std::u16string_view identifier) const;

    void setAutomaticCommit(bool on) const;
    /// From the next transaction on, all queries of a transaction see one state of the database.
    void isolate() const;
    /// Ends the transaction: SQL_COMMIT or SQL_ROLLBACK.
    void end(SQLSMALLINT how) const;
    /// Rolls back an open transaction. No statement may be left.
    void disconnect() const noexcept;

private:
    void connect(const std::u16string &native) const;
    void learnAbout(const recordset::ConnectionString &text);
    void joinCluster() const;
    [[nodiscard]] std::u16string info(SQLUSMALLINT what) const;

    Handle<SQL_HANDLE_ENV> environment_;
    Handle<SQL_HANDLE_DBC> connection_;
    ServerKind server_;
    std::u16string quote_;
    Utf8Texts utf8Texts_ = Utf8Texts::none;
    bool readsBoundAgain_ = false;
};

} // namespace kvex::odbc

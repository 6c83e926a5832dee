#include "adapters/odbc/ClusterNode.h"

#include "adapters/odbc/OdbcStatement.h"
#include "adapters/odbc/ResultValues.h"
#include "adapters/recordset/RowStore.h"

namespace kvex::odbc {
namespace {

/// No row where the server is no node.
constexpr std::u16string_view readiness =
    u"SELECT S.VARIABLE_VALUE FROM information_schema.GLOBAL_VARIABLES V, "
    u"information_schema.GLOBAL_STATUS S WHERE V.VARIABLE_NAME = 'WSREP_ON' AND "
    u"V.VARIABLE_VALUE = 'ON' AND S.VARIABLE_NAME = 'WSREP_READY'";

/// Before a statement that reads (1), changes or removes (2) the node stores what the others have
/// stored. A change then meets what it would overwrite.
constexpr std::u16string_view waitForOthers =
    u"SET SESSION wsrep_sync_wait = @@wsrep_sync_wait | 3";

} // namespace

void joinCluster(const OdbcConnection &connection) {
    if (connection.server().name != u"MariaDB") {
        return;
    }
    recordset::RowStore answer;
    const OdbcStatement query(connection, readiness);
    query.executeDirectly();
    deliverResult(query, answer);
    if (answer.rowCount() == 0) {
        return;
    }
    if (answer.value(0, 0).text() != u"ON") {
        throw errorWith(refusal::noConnection,
                        u"This node of the database's cluster is cut off from the others and takes "
                        u"no statements: wait until it is back, or name another node as Server in "
                        u"the connection string.");
    }
    OdbcStatement(connection, waitForOthers).executeDirectly();
}

} // namespace kvex::odbc

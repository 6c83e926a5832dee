#include "adapters/odbc/ClusterNode.h"

#include "adapters/odbc/OdbcStatement.h"
#include "adapters/odbc/ResultValues.h"
#include "adapters/recordset/RowStore.h"

namespace kvex::odbc {
namespace {

std::u16string answerTo(const OdbcConnection &connection, const char16_t *text,
                        std::size_t column) {
    recordset::RowStore answer;
    const OdbcStatement query(connection, text);
    query.executeDirectly();
    deliverResult(query, answer);
    return answer.rowCount() > 0 ? std::u16string(answer.value(0, column).text())
                                 : std::u16string();
}

} // namespace

void joinCluster(const OdbcConnection &connection) {
    if (connection.server().name != u"MariaDB" ||
        answerTo(connection, u"SHOW GLOBAL VARIABLES LIKE 'wsrep_on'", 1) != u"ON") {
        return;
    }
    // Queries (1), changes and removals (2) wait until the node has what the others stored. One
    // that knows nothing of them does not wait, and fails.
    OdbcStatement(connection, u"SET SESSION wsrep_sync_wait = @@GLOBAL.wsrep_sync_wait | 3")
        .executeDirectly();
    try {
        static_cast<void>(answerTo(connection, u"SELECT 1", 0));
    } catch (const Error &error) {
        if (error.number() != refusal::timeout) {
            throw;
        }
        throw errorWith(refusal::noConnection,
                        u"This node of the database's cluster is cut off from the others and takes "
                        u"no statements: wait until it is back, or name another node as Server in "
                        u"the connection string.");
    }
}

} // namespace kvex::odbc

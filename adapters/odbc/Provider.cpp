#include "adapters/odbc/Provider.h"

#include "adapters/odbc/ConnectionText.h"
#include "adapters/odbc/OdbcDriver.h"

namespace kvex::odbc {

recordset::Provider provider() {
    return {
        u"Driver={NAME};Server=HOST;Database=NAME;UID=USER;PWD={PASSWORD}, or DSN=NAME for ODBC",
        &namesOdbc,
        [](const recordset::ConnectionString &text) -> std::unique_ptr<recordset::Driver> {
            return std::make_unique<OdbcDriver>(text);
        }};
}

} // namespace kvex::odbc

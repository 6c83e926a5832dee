#include "host/suite/SchemaSteps.h"

namespace kvex::host {

const std::vector<SchemaStep> &schemaSteps() {
    // A later step that changes a table needs the old columns here, because serverTables() has the
    // newest ones.
    static const std::vector<SchemaStep> steps{
        {1, u"the new table SMS_SCHEMA says which version the tables have",
         // An upgrade itself makes that table; the others stay as they are.
         [](recordset::Driver & /*driver*/) {}},
    };
    return steps;
}

} // namespace kvex::host

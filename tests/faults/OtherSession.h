// Another program's session that holds a lock on a rule.
#pragma once

#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "platform/Transaction.h"

#include <optional>
#include <string>
#include <vector>

namespace kvex::test {

class OtherSession {
public:
    explicit OtherSession(const std::u16string &connectionString) {
        static_cast<Connection &>(connection_).open(connectionString);
    }

    /// Locks the rule of this name until release.
    void lock(const std::u16string &rule) {
        transaction_.emplace(connection_);
        const std::u16string statement =
            u"UPDATE SMS_RULES SET ACTIVE = ACTIVE WHERE Name = '" + rule + u"'";
        connection_.driver().lock()->execute({statement, {}});
    }
    /// Ends the lock; the rule is unchanged.
    void release() { transaction_.reset(); }

private:
    recordset::ClientConnection connection_{{odbc::provider()}};
    std::optional<Transaction> transaction_;
};

} // namespace kvex::test

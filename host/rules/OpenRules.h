// The rules of a database, read once and changed together.
#pragma once

#include "host/rules/RuleRows.h"

#include <functional>
#include <memory>
#include <vector>

namespace kvex::host {

class OpenRules {
public:
    /// Reads the live rules. `connection` must outlive the object. Fails as the record set's open
    /// does.
    explicit OpenRules(Connection &connection);

    /// What was read, in the order of readRules.
    [[nodiscard]] const std::vector<StoredRule> &rules() const { return rules_; }
    /// Fails as the record set's requireWritable does.
    void requireWritable() { rows_->requireWritable(); }

    /// Stores `wanted` in place of rules(), in one transaction. Rules with the same id are the same
    /// rule; rules that `wanted` lacks are removed. Rules without an id are new and get one. The
    /// order of `wanted` does not matter. Call it once.
    ///
    /// It writes only columns that differ, and they must still hold what was read. A rule to remove
    /// must still hold all that was read.
    ///
    /// Fails as the record set's update and deleteCurrent do, and as the transaction does. The
    /// error says that nothing was changed. When the connection broke at the end of the
    /// transaction, nobody knows; then it says that. Calls `stepped` after each of rules().
    void store(
        std::vector<StoredRule> &wanted, const std::function<void()> &stepped = [] {});

private:
    void writeRows(std::vector<StoredRule> &wanted, const std::function<void()> &stepped);

    Connection &connection_;
    std::unique_ptr<Recordset> rows_;
    std::vector<StoredRule> rules_;
};

} // namespace kvex::host

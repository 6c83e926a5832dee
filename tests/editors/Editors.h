// The suite Editors: two users edit rules, on every kind of database.
#pragma once

#include "platform/Database.h"
#include "platform/Text.h"
#include "tests/databases/DatabaseFixture.h"
#include "tests/editors/Editor.h"
#include "tests/support/WatchedDatabase.h"

#include <gtest/gtest.h>

namespace kvex::test {

inline const std::u16string saveFailed = u"Sub: cmdOK_Click, Module: frmRuleEdit";
inline const std::u16string orderFailed = u"Sub: cmdOK_Click, Module: frmRules";
inline const std::u16string removalFailed = u"Sub: cmdRemove_Click, Module: frmRules";
inline const std::u16string newEditorFailed = u"Sub: Form_Load, Module: frmRuleEdit";
inline const std::u16string openingFailed = u"Sub: ShowRuleUI, Module: RuleUI";

/// A database of any kind with two users. All statements here run on every kind.
class TwoEditors : public testing::Test {
protected:
    explicit TwoEditors(const DatabaseKind &kind) : database_(kind.make()) {}
    void TearDown() override {
        mine.expectPlayedWhole();
        theirs.expectPlayedWhole();
    }

    /// Adds a rule for all messages, and returns its id.
    std::u16string addRule(const std::u16string &name, int priority = 0) {
        run(u"INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY) VALUES ('" + name +
            u"', '<ALLMESSAGES>', '<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES"
            u"</IGNOREFURTHERRULES>', " +
            toText(std::int64_t{priority}) + u")");
        return idOf(name);
    }
    /// Adds the rules "A", "B" and "C" with these priorities.
    void addThree(int first = 1, int step = 1) {
        for (const char16_t *name : {u"A", u"B", u"C"}) {
            addRule(name, first);
            first += step;
        }
    }
    [[nodiscard]] DatabaseFixture &database() { return *database_; }
    /// Runs a statement as another program.
    void run(const std::u16string &statement) { database_->run(statement); }
    std::u16string idOf(const std::u16string &name) {
        return database_->valueOf(u"SELECT ID FROM SMS_RULES WHERE Name = '" + name + u"'");
    }
    std::u16string stored(const std::u16string &column, const std::u16string &name) {
        return database_->valueOf(u"SELECT " + column + u" FROM SMS_RULES WHERE Name = '" + name +
                                  u"'");
    }
    /// The stored priorities of "A", "B" and "C".
    Texts priorities() {
        return {stored(u"PRIORITY", u"A"), stored(u"PRIORITY", u"B"), stored(u"PRIORITY", u"C")};
    }
    std::u16string ruleCount() { return database_->valueOf(u"SELECT COUNT(*) FROM SMS_RULES"); }

private:
    OwnLog log_;
    std::unique_ptr<DatabaseFixture> database_;

protected:
    /// Counts the calls of `mine`, and makes them fail on demand.
    WatchedDatabase watched{database_->provider()};
    Editor mine{watched.provider(), database_->connectionString()};
    Editor theirs{database_->provider(), database_->otherConnectionString()};
};

/// Each test runs on each kind of database.
class Editors : public TwoEditors, public testing::WithParamInterface<DatabaseKind> {
protected:
    Editors() : TwoEditors(GetParam()) {}
};

} // namespace kvex::test

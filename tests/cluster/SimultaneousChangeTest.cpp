// Two nodes change one rule before either knows of the other's change.
#include "adapters/odbc/OdbcError.h"
#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "tests/databases/ServerFixture.h"
#include "tests/editors/Editors.h"
#include "tests/servers/GaleraCluster.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace kvex::test {

class SimultaneousChange : public TwoEditors {
protected:
    SimultaneousChange() : TwoEditors(galeraCluster()) {}

    /// The node may have seen the other change before its own, or only at its own commit.
    void expectRefused() {
        ASSERT_EQ(mine.utility.log.size(), 1U);
        const bool seen = mine.utility.log.front().number == rowChangedByAnother;
        mine.expectTold({saveFailed}, seen ? rowChangedByAnother : odbc::refusal::timeout,
                        seen ? u"Another user changed or removed it"
                             : u"The record is locked by another program (Deadlock");
    }

    GaleraCluster &cluster = GaleraCluster::shared();
};

TEST_F(SimultaneousChange, WhatAnotherNodeStoredBeforeIsSeenByASessionThatOpens) {
    addRule(u"A");
    cluster.node(0).run("mysql", "FLUSH TABLES WITH READ LOCK");
    addRule(u"B", 1);
    // The node applies no change until the session waits for it.
    constexpr std::string_view othersQueries =
        "SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE INFO LIKE 'SELECT%' AND "
        "ID <> CONNECTION_ID()";
    std::atomic<bool> ended = false;
    std::thread release([&] {
        while (!ended && cluster.node(0).valueOf("mysql", othersQueries) == "0") {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        cluster.node(0).run("mysql", "UNLOCK TABLES");
    });
    mine.inRulesWindow([](User &user) {
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B"}));
        user.click(u"cmdCancel");
    });
    ended = true;
    release.join();
}

/// The winner differs from round to round. In each round one change is stored, and a message tells
/// the other user.
TEST_F(SimultaneousChange, IsStoredOnceAndTheOtherUserGetsAMessage) {
    const std::u16string id = addRule(u"A");
    // With this retry, the node would repeat the loser's change, which then finds no row.
    cluster.node(0).run("mysql", "SET GLOBAL wsrep_retry_autocommit = 0");
    recordset::ClientConnection other({odbc::provider()});
    static_cast<Connection &>(other).open(theirs.utility.connectionString);
    const std::u16string change = u"UPDATE SMS_RULES SET Name = 'Theirs' WHERE Name = 'A'";
    for (int round = 1; round <= 40; ++round) {
        run(u"UPDATE SMS_RULES SET Name = 'A'");
        std::atomic<bool> begins = false;
        bool theirsStored = false;
        std::thread theirChange([&] {
            begins.wait(false);
            try {
                theirsStored = other.driver().lock()->execute({change, {}}) == 1;
            } catch (const Error &error) {
                EXPECT_EQ(error.number(), odbc::refusal::timeout) << error.what();
            }
        });
        watched.interruptAfter(6, [&] {
            begins = true;
            begins.notify_one();
        });
        mine.inEditor(id, [&](User &user) {
            rename(user, u"Mine");
            user.click(u"cmdOK");
            theirChange.join();
            EXPECT_EQ(user.isOpen(), theirsStored);
            EXPECT_EQ(idOf(theirsStored ? u"Theirs" : u"Mine"), id);
            if (user.isOpen()) {
                expectRefused();
                user.click(u"cmdOK");
                mine.expectTold({saveFailed}, rowChangedByAnother,
                                u"Another user changed or removed it");
                EXPECT_EQ(typedName(user), u"Mine");
                user.click(u"cmdCancel");
            }
        });
    }
    cluster.node(0).run("mysql", "SET GLOBAL wsrep_retry_autocommit = DEFAULT");
}

TEST_F(SimultaneousChange, AnOrderThatIsRefusedAtItsEndLeavesTheOldOneAndIsStoredAgain) {
    addThree(10, 10);
    recordset::ClientConnection other({odbc::provider()});
    static_cast<Connection &>(other).open(theirs.utility.connectionString);
    mine.inRulesWindow([&](User &user) {
        // Between the last change and the commit, another node commits a change of the same rule.
        watched.interruptAfter(4, [&] {
            const std::u16string change = u"UPDATE SMS_RULES SET ACTIVE = 0 WHERE Name = 'B'";
            EXPECT_EQ(other.driver().lock()->execute({change, {}}), 1);
        });
        user.click(u"cmdOK");
        EXPECT_TRUE(user.isOpen());
        ASSERT_EQ(mine.utility.log.size(), 1U);
        EXPECT_TRUE(mine.utility.log.front().description.ends_with(u" The old order is stored."));
        mine.expectTold({orderFailed}, odbc::refusal::timeout, u"(Deadlock found");
        EXPECT_EQ(priorities(), (Texts{u"10", u"20", u"30"}));
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(priorities(), (Texts{u"1", u"2", u"3"}));
    EXPECT_EQ(stored(u"ACTIVE", u"B"), u"0");
}

} // namespace kvex::test

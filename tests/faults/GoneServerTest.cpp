// The server goes away while a user works. A message tells the user, and the input stays. No
// message claims more than was stored. A new session works when the server is back.
#include "tests/editors/Editors.h"
#include "tests/faults/OtherSession.h"
#include "tests/faults/OwnNetwork.h"
#include "tests/faults/ServerUnderTest.h"

#include <atomic>
#include <chrono>
#include <thread>
#include <tuple>

namespace kvex::test {
namespace {

using Loss = std::tuple<ServerKindUnderTest, WayToGo>;

constexpr std::u16string_view notStored = u"was not stored, as far as is known. The ";

} // namespace

/// These tests check only that a call ends. Without a timeout a driver waits for a quarter of an
/// hour, far longer than this test program may run.
class GoneServer : public TwoEditors, public testing::WithParamInterface<Loss> {
protected:
    GoneServer() : TwoEditors(std::get<ServerKindUnderTest>(GetParam()).database) {
        mine.setServers(addressOf(way_.relayed ? place_.relay.port() : place_.server.port()), 2);
    }
    /// Brings the server back, also after a test that failed half-way.
    ~GoneServer() override { comeBack(); }

    void goAway() {
        isGone_ = true;
        way_.go(place_);
    }
    void goAwayAfter(int calls) {
        watched.interruptAfter(calls, [this] { goAway(); });
    }
    /// Takes the server away while `step` has a statement that waits for a lock. The server has
    /// received the statement by then, so the client only waits for the answer.
    template <class Step> void goAwayDuring(const Step &step) {
        std::atomic<bool> ended = false;
        std::thread other([&] {
            const auto await = [&](const auto &state) {
                while (!ended && !state()) {
                    std::this_thread::sleep_for(std::chrono::milliseconds(10));
                }
            };
            await([this] { return waits(); });
            await([this] { return hasArrived(place_.server.port()); });
            goAway();
        });
        step();
        ended = true;
        other.join();
    }
    bool waits() { return place_.server.valueOf(kind_.ownDatabase, kind_.waitingQuery) != "0"; }
    bool hasTransactions() {
        return place_.server.valueOf(kind_.ownDatabase, kind_.transactionsQuery) != "0";
    }
    void comeBack() {
        if (isGone_) {
            isGone_ = false;
            way_.comeBack(place_);
        }
    }

private:
    const ServerKindUnderTest &kind_ = std::get<ServerKindUnderTest>(GetParam());
    const WayToGo &way_ = std::get<WayToGo>(GetParam());
    ServerUnderTest place_{kind_.server()};
    bool isGone_ = false;
};

TEST_P(GoneServer, BeforeOrWhileTheRulesAreReadEndsTheOpening) {
    addThree();
    // The server goes away before the connection, or before one of the queries.
    for (const int calls : {0, 3}) {
        goAwayAfter(calls);
        EXPECT_EQ(mine.showRules(), 0);
        mine.expectTold({openingFailed}, noConnection, u"The ");
        comeBack();
        mine.inRulesWindow([](User &user) {
            EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
            user.click(u"cmdCancel");
        });
    }
}

TEST_P(GoneServer, AtATickLeavesTheRuleAndTheWindow) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        goAway();
        user.tickRow(u"lvwRules", 2);
        mine.expectLeftHandler(noConnection, notStored);
        comeBack();
        // For this session the connection stays lost.
        user.tickRow(u"lvwRules", 3);
        mine.expectLeftHandler(noConnection, notStored);
        const auto &rules = user.get<ListView>(u"lvwRules");
        EXPECT_EQ(tickedRows(rules), std::vector{1});
        user.clickRow(u"lvwRules", 1);
        EXPECT_EQ(ruleState().strRuleName, u"A");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(stored(u"ACTIVE", u"B") + stored(u"ACTIVE", u"C"), u"11");
    mine.inRulesWindow([](User &user) {
        user.tickRow(u"lvwRules", 2);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(stored(u"ACTIVE", u"B"), u"0");
}

TEST_P(GoneServer, WhileAStatementIsUnderWayEndsItAndSaysThatItsOutcomeIsNotKnown) {
    addThree();
    // This session does not use the relay, and has a longer timeout.
    OtherSession other(theirs.utility.connectionString);
    mine.inRulesWindow([&](User &user) {
        // The first write also asks for the table's key, so it happens before the lock.
        user.tickRow(u"lvwRules", 1);
        other.lock(u"B");
        goAwayDuring([&] { user.tickRow(u"lvwRules", 2); });
        mine.expectLeftHandler(noConnection, notStored);
        comeBack();
        // The server gives up as well, though it does not know that its client has gone.
        while (waits()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        user.click(u"cmdCancel");
    });
    other.release();
    EXPECT_EQ(stored(u"ACTIVE", u"A") + stored(u"ACTIVE", u"B"), u"01");
    mine.inRulesWindow([](User &user) {
        user.tickRow(u"lvwRules", 2);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(stored(u"ACTIVE", u"B"), u"0");
}

TEST_P(GoneServer, AtASaveLeavesTheEditorWithItsInput) {
    const std::u16string id = addRule(u"A");
    for (const std::u16string &rule : {id, std::u16string()}) {
        const auto save = [&](User &user) {
            if (rule.empty()) {
                completeRule(user);
            }
            rename(user, rule.empty() ? u"New" : u"Changed");
            user.click(u"cmdOK");
        };
        mine.inEditor(rule, [&](User &user) {
            const std::u16string_view name = rule.empty() ? u"New" : u"Changed";
            goAwayAfter(0);
            save(user);
            mine.expectTold({saveFailed}, noConnection, notStored);
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(typedName(user), name);
            comeBack();
            user.click(u"cmdOK");
            mine.expectTold({saveFailed}, noConnection, notStored);
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(typedName(user), name);
            user.click(u"cmdCancel");
        });
        EXPECT_EQ(idOf(u"Changed"), rule.empty() ? id : u"NONE");
        EXPECT_EQ(ruleCount(), u"1");
        mine.inEditor(rule, [&](User &user) {
            save(user);
            EXPECT_FALSE(user.isOpen());
        });
    }
    EXPECT_EQ(idOf(u"Changed"), id);
    EXPECT_EQ(ruleCount(), u"2");
}

TEST_P(GoneServer, BetweenTheWriteAndTheReadingOfASaveIsReportedAsStored) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [&](User &user) {
        rename(user, u"Changed");
        goAwayAfter(1);
        user.click(u"cmdOK");
        mine.expectTold({saveFailed}, noConnection,
                        u"What was stored before stays stored, but record ID " + id +
                            u" could not be read again. ");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(typedName(user), u"Changed");
        comeBack();
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(idOf(u"Changed"), id);
}

TEST_P(GoneServer, InTheMiddleOfAnOrderLeavesTheOldOneAndTheWindow) {
    addThree(10, 10);
    mine.inRulesWindow([this](User &user) {
        goAwayAfter(2);
        user.click(u"cmdOK");
        mine.expectTold({orderFailed}, noConnection, u" The old order is stored.");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        comeBack();
        user.click(u"cmdOK");
        mine.expectTold({orderFailed}, noConnection, u" The old order is stored.");
        EXPECT_TRUE(user.isOpen());
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(priorities(), (Texts{u"10", u"20", u"30"}));
    // The server gives up as well, though it does not know that its client has gone.
    while (hasTransactions()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    mine.inRulesWindow([](User &user) { user.click(u"cmdOK"); });
    EXPECT_EQ(priorities(), (Texts{u"1", u"2", u"3"}));
}

INSTANTIATE_TEST_SUITE_P(Faults, GoneServer,
                         testing::Combine(testing::ValuesIn(serversUnderTest()),
                                          testing::ValuesIn(waysToGo())),
                         [](const auto &loss) {
                             return std::get<ServerKindUnderTest>(loss.param).database.name +
                                    std::get<WayToGo>(loss.param).name;
                         });

} // namespace kvex::test

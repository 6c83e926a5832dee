// When a node goes away or is cut off from the others, the next session uses another node.
#include "adapters/odbc/OdbcError.h"
#include "tests/databases/ServerFixture.h"
#include "tests/editors/Editors.h"
#include "tests/servers/GaleraCluster.h"

namespace kvex::test {
namespace {

const std::u16string everyNode = u"127.0.0.1,127.0.0.2,127.0.0.3";

} // namespace

class LostNode : public TwoEditors {
protected:
    LostNode() : TwoEditors(galeraCluster()), id(addRule(u"A")) {
        // The timeout is longer than the other nodes need to notice that a node is gone.
        mine.setServers(everyNode, 30);
    }

    /// Renames "A" while the session's node goes away, and expects a message.
    template <class Event>
    void loseNodeBeforeTheSave(std::int32_t number, std::u16string_view words, const Event &event) {
        mine.inEditor(id, [&](User &user) {
            rename(user, u"Mine");
            event();
            for (int attempt = 1; attempt <= 2; ++attempt) {
                user.click(u"cmdOK");
                mine.expectTold({saveFailed}, number, words);
                EXPECT_TRUE(user.isOpen());
                EXPECT_EQ(typedName(user), u"Mine");
            }
            user.click(u"cmdCancel");
        });
    }
    void expectNextSessionWorks() {
        mine.inEditor(id, [](User &user) {
            EXPECT_EQ(typedName(user), u"A");
            rename(user, u"Mine");
            user.click(u"cmdOK");
            EXPECT_FALSE(user.isOpen());
        });
        EXPECT_EQ(idOf(u"Mine"), id);
    }

    GaleraCluster &cluster = GaleraCluster::shared();
    std::u16string id;
};

TEST_F(LostNode, ThatIsKilledInASessionCausesAMessageAndTheNextSessionUsesAnother) {
    loseNodeBeforeTheSave(noConnection, u"The connection to the database is lost (",
                          [this] { cluster.node(0).kill(); });
    // The next session starts at once, when the other nodes may not have noticed yet.
    expectNextSessionWorks();
    cluster.node(0).start();
    cluster.waitUntilSynced();
}

TEST_F(LostNode, ThatIsCutOffInASessionCausesAMessageAndTheNextSessionUsesAnother) {
    loseNodeBeforeTheSave(odbc::refusal::timeout, u"or the server is cut off from its cluster (",
                          [this] { cluster.isolate(0); });
    expectNextSessionWorks();
    // Without another node in the list, the error tells that this node is cut off.
    mine.setServers(u"127.0.0.1", 30);
    EXPECT_EQ(mine.showRules(), 0);
    mine.expectTold({openingFailed}, noConnection,
                    u"This node of the database's cluster is cut off from the others");
    cluster.rejoin(0);
}

} // namespace kvex::test

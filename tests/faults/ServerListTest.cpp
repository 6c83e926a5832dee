// A session uses the first usable server of its list.
#include "adapters/odbc/OdbcError.h"
#include "tests/editors/Editors.h"
#include "tests/faults/ServerUnderTest.h"
#include "tests/host/EnvironmentVariables.h"
#include "tests/servers/FreePort.h"

namespace kvex::test {
namespace {} // namespace

class ServerList : public TwoEditors, public testing::WithParamInterface<ServerKindUnderTest> {
protected:
    ServerList() : TwoEditors(GetParam().database) { addRule(u"A"); }

    void listServers(const std::vector<std::uint16_t> &ports) {
        std::u16string list;
        for (const std::uint16_t port : ports) {
            list += list.empty() ? u"" : u",";
            list += addressOf(port);
        }
        mine.setServers(list, static_cast<int>(ports.size()) * 2);
    }
    void expectRules() {
        mine.inRulesWindow([](User &user) {
            EXPECT_EQ(user.rows(u"lvwRules"), Texts{u"A"});
            user.click(u"cmdCancel");
        });
    }

    DatabaseServer &server = GetParam().server();
};

TEST_P(ServerList, ServersThatRefuseOrDoNotAnswerAreSkipped) {
    TcpRelay silent(server.port());
    silent.cut();
    listServers({freePort(), silent.port(), server.port()});
    expectRules();
}

TEST_P(ServerList, TheListOfADataSourceIsUsedToo) {
    // The driver manager caches data sources for a while, so each has another name.
    host::TemporaryFolder folder;
    std::u16string &text = mine.utility.connectionString;
    const std::string driver = toUtf8(text.substr(8, text.find(u'}') - 8));
    const bool isPostgreSql = driver.starts_with("Postgre");
    host::writeFile(folder / "odbc.ini",
                    "[" + GetParam().database.name + "]\nDriver=" + driver +
                        (isPostgreSql ? "\nServername=" : "\nServer=") +
                        toUtf8(addressOf(freePort()) + u"," + addressOf(server.port())) + "\n");
    host::EnvironmentVariables variables;
    variables.set("ODBCINI", (folder / "odbc.ini").string());
    text = u"DSN=" + fromUtf8(GetParam().database.name) + text.substr(text.find(u";Database="));
    expectRules();
}

TEST_P(ServerList, ALostServersSessionEndsAndTheNextTakesAnother) {
    TcpRelay first(server.port());
    listServers({first.port(), server.port()});
    const std::u16string id = idOf(u"A");
    mine.inEditor(id, [&](User &user) {
        rename(user, u"Mine");
        first.refuse();
        user.click(u"cmdOK");
        mine.expectTold({saveFailed}, noConnection,
                        u"was not stored, as far as is known. The connection");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(typedName(user), u"Mine");
        user.click(u"cmdCancel");
    });
    expectRules();
}

TEST_P(ServerList, WithoutAUsableServerTheErrorOfTheLastOneIsShown) {
    const std::uint16_t last = freePort();
    listServers({freePort(), last});
    EXPECT_EQ(mine.showRules(), 0);
    mine.expectTold({openingFailed}, noConnection, u"The database cannot be reached (");
}

TEST_P(ServerList, AServerThatRefusesTheUserIsNotSkipped) {
    listServers({server.port(), freePort()});
    std::u16string &text = mine.utility.connectionString;
    text.replace(text.find(u"PWD="), 4, u"PWD=no");
    EXPECT_EQ(mine.showRules(), 0);
    mine.expectTold({openingFailed}, odbc::refusal::wrongUser,
                    u"The database refuses this user or password (");
}

INSTANTIATE_TEST_SUITE_P(Faults, ServerList, testing::ValuesIn(serversUnderTest()),
                         [](const auto &kind) { return kind.param.database.name; });

} // namespace kvex::test

#include "tests/cluster/ClusterFixture.h"

#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/Schema.h"
#include "platform/Text.h"

namespace kvex::test {
namespace {

/// A database on the cluster; it is dropped with the object.
class ClusterFixture final : public DatabaseFixture {
public:
    ClusterFixture() {
        static int number = 0;
        name_ = "cluster" + std::to_string(++number);
        cluster_.node(0).createDatabase(name_);
        recordset::ClientConnection connection({odbc::provider()});
        static_cast<Connection &>(connection).open(connectionString());
        recordset::createSchema(connection);
        // Before anyone opens the database every node has it; the third sees all from then on.
        const std::string seeAll = "SET SESSION wsrep_sync_wait = 15; SELECT 1";
        for (std::size_t node = 0; node < GaleraCluster::size; ++node) {
            cluster_.node(node).run("mysql", seeAll + "; SET SESSION wsrep_sync_wait = 0");
        }
        cluster_.node(2).run(name_, seeAll);
    }
    ~ClusterFixture() override { cluster_.node(2).dropDatabase(name_); }
    ClusterFixture(const ClusterFixture &) = delete;
    ClusterFixture &operator=(const ClusterFixture &) = delete;

    [[nodiscard]] recordset::Provider provider() const override { return odbc::provider(); }
    [[nodiscard]] std::u16string connectionString() const override { return onNode(0); }
    [[nodiscard]] std::u16string otherConnectionString() const override { return onNode(1); }
    void run(std::u16string_view statement) override {
        cluster_.node(2).run(name_, toUtf8(statement));
    }
    [[nodiscard]] std::u16string valueOf(std::u16string_view query) override {
        return fromUtf8(cluster_.node(2).valueOf(name_, toUtf8(query)));
    }

private:
    [[nodiscard]] std::u16string onNode(std::size_t node) const {
        return fromUtf8(cluster_.node(node).odbcConnectionString(name_));
    }

    GaleraCluster &cluster_ = sharedCluster();
    std::string name_;
};

} // namespace

GaleraCluster &sharedCluster() {
    static GaleraCluster cluster;
    return cluster;
}

DatabaseKind galeraCluster() {
    return {"Galera", []() -> std::unique_ptr<DatabaseFixture> {
                return std::make_unique<ClusterFixture>();
            }};
}

} // namespace kvex::test

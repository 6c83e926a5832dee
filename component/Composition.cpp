#include "component/Composition.h"

#include "adapters/classserver/server/InProcessServer.h"
#include "adapters/odbc/Provider.h"
#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "adapters/sqlite/Provider.h"
#include "adapters/toolkits/LoadedToolkit.h"
#include "component/HostObjects.h"
#include "platform/Text.h"

namespace kvex {
namespace {

class Composition final : public Platform {
public:
    std::unique_ptr<Utility> createUtility() override { return createHostUtility(); }

    std::unique_ptr<Connection> createConnection() override {
        return std::make_unique<recordset::ClientConnection>(
            std::vector<recordset::Provider>{sqlite::provider(), odbc::provider()});
    }

    std::unique_ptr<Recordset> createRecordset() override {
        return std::make_unique<recordset::ClientRecordset>();
    }

    std::unique_ptr<AddressBook> createAddressBook() override { return createHostAddressBook(); }

    Toolkit &toolkit() override { return toolkit_; }

    std::u16string componentDirectory() override {
        return fromUtf8(modulePath().parent_path().native());
    }

private:
    toolkits::LoadedToolkit toolkit_{modulePath().parent_path()};
};

} // namespace

Platform &composition() {
    static Composition platform;
    return platform;
}

} // namespace kvex

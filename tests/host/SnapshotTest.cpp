#include "host/rules/RuleRows.h"
#include "host/suite/Databases.h"
#include "host/suite/DriverTransaction.h"
#include "platform/Text.h"
#include "tests/host/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

/// In this journal mode a reader does not keep others from writing.
TEST(Snapshot, ShowsOneStateWhileOthersWrite) {
    const TemporaryFolder folder;
    const std::u16string file = fromUtf8((folder / "rules.db").string());
    const auto mine = openOrMakeDatabase(file);
    const auto others = openDatabase(file);
    const auto driver = mine->driver().lock();
    driver->execute({u"PRAGMA journal_mode = WAL", {}});
    driver->execute({u"CREATE TABLE SMS_USERS (ID INTEGER, NAME TEXT, DELETED INTEGER)", {}});
    const auto names = [&] {
        std::u16string all;
        for (const NamedRow &user : readUsers(*mine)) {
            all += user.name;
        }
        return all;
    };
    {
        const Snapshot snapshot(*driver);
        EXPECT_EQ(names(), u"");
        others->driver().lock()->execute({u"INSERT INTO SMS_USERS VALUES (1, 'Asha', 0)", {}});
        EXPECT_EQ(names(), u"");
    }
    EXPECT_EQ(names(), u"Asha");
}

} // namespace
} // namespace kvex::host

// How the adapter recognises the kind of a server.
#include "adapters/odbc/ServerKind.h"

#include <gtest/gtest.h>

namespace kvex::test {
namespace {

using odbc::NewKey;
using odbc::ServerKind;

TEST(ServerKind, MariaDbReturnsTheNewKeyFromTenPointFiveOn) {
    EXPECT_EQ(ServerKind::of(u"MariaDB", u"10.05.000000").newKey, NewKey::returning);
    EXPECT_EQ(ServerKind::of(u"MariaDB", u"11.01.000002").newKey, NewKey::returning);
    EXPECT_EQ(ServerKind::of(u"MariaDB", u"10.04.000034").newKey, NewKey::lastNumber);
    EXPECT_EQ(ServerKind::of(u"MySQL", u"8.0.33").newKey, NewKey::lastNumber);
}

TEST(ServerKind, NamesIgnoreCase) {
    EXPECT_EQ(ServerKind::of(u"POSTGRESQL", u"15.0.4").name, u"PostgreSQL");
    EXPECT_EQ(ServerKind::of(u"microsoft sql server", u"16").newKey, NewKey::output);
}

TEST(ServerKind, AnUnknownServerSaysNoKeys) {
    EXPECT_EQ(ServerKind::of(u"Unheard", u"").newKey, NewKey::given);
}

} // namespace
} // namespace kvex::test

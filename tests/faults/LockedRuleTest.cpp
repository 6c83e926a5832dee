// A write waits for a rule that another program has locked, but not for ever.
#include "adapters/odbc/OdbcError.h"
#include "tests/editors/Editors.h"
#include "tests/faults/OtherSession.h"
#include "tests/faults/ServerUnderTest.h"

namespace kvex::test {
namespace {

constexpr std::u16string_view locked = u" was not stored. The record is locked by another program";

} // namespace

/// The server must give up before the client: a lost connection has another error number.
class LockedRule : public TwoEditors, public testing::WithParamInterface<ServerKindUnderTest> {
protected:
    LockedRule() : TwoEditors(GetParam().database), id(addRule(u"A")) {
        mine.utility.connectionString += u";Connect Timeout=2";
        other.lock(u"A");
    }

    std::u16string id;
    OtherSession other{theirs.utility.connectionString};
};

TEST_P(LockedRule, ATickIsRefusedAndStoredOnceTheLockIsGone) {
    mine.inRulesWindow([this](User &user) {
        user.tickRow(u"lvwRules", 1);
        mine.expectLeftHandler(odbc::refusal::timeout, locked);
        EXPECT_EQ(stored(u"ACTIVE", u"A"), u"1");
        other.release();
        // The first tick returns to the stored value and sends nothing; the second one writes.
        user.tickRow(u"lvwRules", 1);
        user.tickRow(u"lvwRules", 1);
        EXPECT_EQ(stored(u"ACTIVE", u"A"), u"0");
        user.click(u"cmdCancel");
    });
}

TEST_P(LockedRule, ASaveIsRefusedKeepsItsInputAndIsStoredOnceTheLockIsGone) {
    mine.inEditor(id, [this](User &user) {
        rename(user, u"Mine");
        user.click(u"cmdOK");
        mine.expectTold({saveFailed}, odbc::refusal::timeout,
                        u"The change of record ID " + id + std::u16string(locked));
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(typedName(user), u"Mine");
        EXPECT_EQ(idOf(u"A"), id);
        other.release();
        user.click(u"cmdOK");
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(idOf(u"Mine"), id);
}

INSTANTIATE_TEST_SUITE_P(Faults, LockedRule, testing::ValuesIn(serversUnderTest()),
                         [](const auto &kind) { return kind.param.database.name; });

} // namespace kvex::test

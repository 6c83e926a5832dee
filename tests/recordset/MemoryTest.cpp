// An allocation that fails in the middle of a call.
#include "adapters/recordset/RowStore.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/databases/SqliteSchema.h"
#include "tests/recordset/FailingMemory.h"
#include "tests/recordset/ScriptedSession.h"
#include "tests/recordset/SqliteSession.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace kvex::test {
namespace {

using recordset::RowStore;

/// More allocations than any of these calls makes.
constexpr int tooMany = 1000;
/// Too long for a text's own buffer and for what is left of a small store.
const std::u16string longText(3000, u'x');

std::int64_t sentBeginning(const Script &script, std::u16string_view beginning) {
    return std::ranges::count_if(script.sent, [beginning](const std::u16string &sent) {
        return sent.starts_with(beginning);
    });
}

ScriptedSession scripted() {
    return ScriptedSession({.columns = columnsOfT(),
                            .rows = {{std::int64_t{3}, u"a", Null()}},
                            .key = {std::int64_t{4}}});
}

} // namespace

TEST(FailingMemory, ATextThatFoundNoRoomLeavesTheStoreAsItWas) {
    RowStore rows;
    rows.columns({{u"A", {}, {}, 0}});
    rows.text(u"first");
    const std::u16string_view first = rows.value(0, 0).textOrEmpty();
    ASSERT_TRUE(failsAt(0, [&] { rows.text(longText); }));
    rows.text(std::u16string(2000, u'y'));
    const std::u16string_view second = rows.value(1, 0).textOrEmpty();
    EXPECT_NE(second.data(), first.data() + first.size());
    EXPECT_EQ(second, std::u16string(2000, u'y'));
    EXPECT_EQ(first, u"first");
    EXPECT_EQ(rows.rowCount(), 2U);
}

TEST(FailingMemory, AValueThatFoundNoRoomCanBeAddedAgain) {
    RowStore rows;
    rows.columns({{u"A", {}, {}, 0}, {u"B", {}, {}, 0}});
    constexpr std::int64_t count = 300;
    for (std::int64_t row = 0; row < count; ++row) {
        for (int number = 0; failsAt(number, [&] { rows.utf8("text"); }); ++number) {
        }
        for (int number = 0; failsAt(number, [&] { rows.integer(row); }); ++number) {
        }
    }
    ASSERT_EQ(rows.rowCount(), static_cast<std::size_t>(count));
    for (std::int64_t row = 0; row < count; ++row) {
        ASSERT_EQ(rows.value(static_cast<std::size_t>(row), 0).textOrEmpty(), u"text");
        ASSERT_EQ(rows.value(static_cast<std::size_t>(row), 1).owned(), Value(row));
    }
}

TEST(FailingMemory, AnInsertedRowIsNotInsertedAgain) {
    int number = 0;
    for (bool failed = true; failed; ++number) {
        ASSERT_LT(number, tooMany);
        ScriptedSession session = scripted();
        const auto rows = session.records();
        rows->find(u"ID = 3");
        rows->addNew();
        rows->setField(u"A", longText);
        rows->setField(u"B", std::int64_t{8});
        failed = failsAt(number, [&] { rows->update(); });
        rows->update();
        EXPECT_EQ(sentBeginning(session.script(), u"INSERT"), 1);
        EXPECT_EQ(rows->recordCount(), 2);
        rows->moveFirst();
        rows->find(u"ID = 4");
        EXPECT_EQ(rows->field(u"A").text(), longText);
        EXPECT_EQ(rows->field(u"B").int32(), 8);
        rows->moveNext();
        EXPECT_TRUE(rows->eof());
    }
    EXPECT_GT(number, 2);
}

TEST(FailingMemory, ARowWhoseKeyIsALongTextIsNotInsertedAgain) {
    int number = 0;
    for (bool failed = true; failed; ++number) {
        ASSERT_LT(number, tooMany);
        ScriptedSession session = scripted();
        session.script().key = {longText};
        const auto rows = session.records();
        rows->addNew();
        rows->setField(u"A", u"new");
        failed = failsAt(number, [&] { rows->update(); });
        rows->update();
        EXPECT_EQ(sentBeginning(session.script(), u"INSERT"), 1);
        EXPECT_EQ(rows->recordCount(), 2);
        EXPECT_EQ(rows->field(u"A").text(), u"new");
    }
    EXPECT_GT(number, 2);
}

TEST(FailingMemory, AStoredChangeIsHeld) {
    int number = 0;
    for (bool failed = true; failed; ++number) {
        ASSERT_LT(number, tooMany);
        ScriptedSession session = scripted();
        const auto rows = session.records();
        rows->find(u"ID = 3");
        rows->setField(u"ID", std::int64_t{5});
        rows->setField(u"A", longText);
        failed = failsAt(number, [&] { rows->update(); });
        rows->update();
        EXPECT_EQ(sentBeginning(session.script(), u"UPDATE"), 1);
        rows->moveFirst();
        rows->find(u"ID = 5");
        EXPECT_EQ(rows->field(u"A").text(), longText);
    }
    EXPECT_GT(number, 2);
}

TEST(FailingMemory, ARemovedRowIsNotRemovedAgain) {
    int number = 0;
    for (bool failed = true; failed; ++number) {
        ASSERT_LT(number, tooMany);
        ScriptedSession session = scripted();
        const auto rows = session.records();
        rows->find(u"ID = 3");
        failed = failsAt(number, [&] { rows->deleteCurrent(); });
        if (failed) {
            rows->deleteCurrent();
        }
        EXPECT_EQ(sentBeginning(session.script(), u"DELETE"), 1);
        EXPECT_EQ(rows->recordCount(), 0);
    }
    EXPECT_GT(number, 2);
}

TEST(FailingMemory, ARecordThatCouldNotBeReadAgainStaysAsItWas) {
    int number = 0;
    for (bool failed = true; failed; ++number) {
        ASSERT_LT(number, tooMany);
        ScriptedSession session = scripted();
        const auto rows = session.records();
        rows->setField(u"B", u"mine");
        session.script().rows = {{std::int64_t{5}, longText, longText}};
        failed = failsAt(number, [&] { rows->resyncCurrent(); });
        EXPECT_EQ(rows->field(u"ID").int32(), failed ? 3 : 5);
        EXPECT_EQ(rows->field(u"A").text(), failed ? u"a" : longText);
        EXPECT_EQ(rows->field(u"B").text(), failed ? u"mine" : longText);
    }
    EXPECT_GT(number, 2);
}

TEST(FailingMemory, SqliteStoresANewRecordOnce) {
    const std::string name = "file:failing-memory?mode=memory&cache=shared";
    OtherProgram other(name);
    createSqliteSchema(fromUtf8(name));
    int number = 0;
    for (bool failed = true; failed; ++number) {
        ASSERT_LT(number, tooMany);
        other.run(u"DELETE FROM SMS_RULES");
        SqliteSession session(fromUtf8(name));
        const auto rules = session.records();
        rules->addNew();
        rules->setField(u"QueryParam", longText);
        failed = failsAt(number, [&] { rules->update(); });
        rules->update();
        EXPECT_EQ(other.valueOf(u"SELECT COUNT(*) FROM SMS_RULES"), u"1") << number;
        EXPECT_EQ(rules->recordCount(), 1);
        rules->resyncCurrent();
        EXPECT_EQ(rules->field(u"QueryParam").text(), longText);
    }
    EXPECT_GT(number, 2);
}

} // namespace kvex::test

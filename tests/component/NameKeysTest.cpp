// The keys of names say the same as the search with which the editor finds a taken name.
#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "platform/Text.h"
#include "platform/Unicode.h"
#include "tests/support/LoadedComponent.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace kvex::test {
namespace {

TEST(NameKeys, SayTheSameAsTheEditorsSearch) {
    // Neighbours may differ in case only.
    constexpr std::array<std::u16string_view, 16> pieces{
        u"a",      u"A",      u"k",      u"\u212A", u"s", u"\u017F", u"i", u"\u0131",
        u"\u00DF", u"\u1E9E", u"\u03C2", u"\u03A3", u"I", u"\u0130", u" ", u"b"};
    std::mt19937 random(7);
    const LoadedComponent component;
    const auto strings = component.strings();
    TestDatabase database;
    int taken = 0;
    for (int round = 0; round < 400; ++round) {
        std::u16string storedName;
        std::u16string typedName;
        for (auto left = random() % 3 + 1; left > 0; --left) {
            const std::size_t piece = random() % pieces.size();
            storedName += pieces[piece];
            typedName += pieces[piece ^ (random() % 2)];
        }
        database.execute("DELETE FROM SMS_RULES");
        database.addRule(toUtf8(storedName));
        recordset::ClientConnection connection({database.provider()});
        static_cast<Connection &>(connection).open(database.connectionString());
        recordset::ClientRecordset records;
        Recordset &rows = records;
        rows.open(u"SELECT Name FROM SMS_RULES", connection);
        rows.find(u"Name = '" + upperCase(trimmed(typedName)) + u"'");
        const bool isTaken = !rows.eof();
        Bstr typed;
        Bstr stored;
        Bstr ignored;
        strings->GetNameKeys(Bstr(typedName).get(), typed.put(), ignored.put());
        strings->GetNameKeys(Bstr(storedName).get(), ignored.put(), stored.put());
        EXPECT_EQ(typed.view() == stored.view(), isTaken)
            << toUtf8(typedName) << " and " << toUtf8(storedName);
        taken += isTaken ? 1 : 0;
    }
    EXPECT_GT(taken, 50);
    EXPECT_LT(taken, 350);
}

} // namespace
} // namespace kvex::test

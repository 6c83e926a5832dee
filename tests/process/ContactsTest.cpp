#include "tests/process/KvexrulesTest.h"

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::HasSubstr;

class Contacts : public KvexrulesTest {
protected:
    void SetUp() override { done({"init"}); }

    /// Runs "contacts import" on a file with this text.
    Outcome imported(const std::string &name, const std::string &text,
                     std::vector<std::string> options = {}) const {
        writeFile(folder / name, text);
        options.insert(options.begin(), {"contacts", "import", name});
        return kvexrules(options);
    }
    std::string rows(const std::string &columns = "USER_ID, NAME, MOBILE") const {
        return sqlite3(database, "SELECT " + columns + " FROM SMS_CONTACTS ORDER BY ID");
    }

    static constexpr const char *twoCards = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Asha Rao\r\n"
                                            "TEL;TYPE=CELL:9811100011\r\nEND:VCARD\r\n"
                                            "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:अनिल 🚨\r\n"
                                            "TEL;VALUE=uri:tel:+91-98111\r\nEND:VCARD\r\n";
};

TEST_F(Contacts, AreTakenFromVCards) {
    const Outcome outcome = imported("book.vcf", twoCards);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "2 contacts taken, 0 skipped.\n");
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(rows(), "1|Asha Rao|9811100011\n1|अनिल 🚨|+91-98111\n");
}

TEST_F(Contacts, AreTakenFromATable) {
    EXPECT_EQ(imported("book.csv", "Name;Mobile\nRao, Asha;98\n").output,
              "1 contact taken, 0 skipped.\n");
    EXPECT_EQ(rows(), "1|Rao, Asha|98\n");
}

TEST_F(Contacts, BelongToTheUserWhoIsNamed) {
    EXPECT_EQ(imported("book.csv", "Name,Mobile\nA,98\n", {"--user", "7"}).status, 0);
    EXPECT_EQ(rows(), "7|A|98\n");
    EXPECT_EQ(done({"contacts", "list"}), "");
    EXPECT_EQ(done({"contacts", "list", "--user", "7"}), "1\tA\t98\n");
}

TEST_F(Contacts, AreNotTakenTwice) {
    imported("book.vcf", twoCards);
    const Outcome again = imported("book.vcf", twoCards);
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.output, "0 contacts taken, 2 already there, 0 skipped.\n");
    EXPECT_EQ(rows("COUNT(*)"), "2\n");
}

TEST_F(Contacts, ThatCannotBeReadAreNamedWithTheirLine) {
    const Outcome cards =
        imported("book.vcf", std::string(twoCards) + "BEGIN:VCARD\nVERSION:4.0\nFN:B\nEND:VCARD\n"
                                                     "BEGIN:VCARD\nVERSION:2.1\nTEL:1\n");
    EXPECT_EQ(cards.status, 1);
    EXPECT_EQ(cards.output, "2 contacts taken, 2 skipped.\n");
    EXPECT_EQ(cards.errors, "kvexrules: book.vcf:11: the card has no telephone number; skipped\n"
                            "kvexrules: book.vcf:15: the card has no END; skipped\n");
    const Outcome table = imported("book.csv", "Name,Mobile\nA,\nB,2\n");
    EXPECT_EQ(table.status, 1);
    EXPECT_EQ(table.errors, "kvexrules: book.csv:2: the row has no telephone number; skipped\n");
}

TEST_F(Contacts, OfAFileThatHoldsNoneAreNotTaken) {
    writeFile(folder / "none.csv", "Asha,98\n");
    EXPECT_THAT(failed(2, {"contacts", "import", "none.csv"}),
                AllOf(HasSubstr("none.csv"), HasSubstr("Name,Mobile")));
    writeFile(folder / "none.vcf", "Name,Mobile\nA,98\n");
    EXPECT_THAT(failed(2, {"contacts", "import", "none.vcf"}), HasSubstr("BEGIN:VCARD"));
    EXPECT_THAT(failed(2, {"contacts", "import", "missing.vcf"}),
                HasSubstr("missing.vcf cannot be read"));
    EXPECT_THAT(failed(2, {"contacts", "import", folder.path().string()}),
                HasSubstr("cannot be read"));
    const Outcome skipped = imported("all.csv", "Name,Mobile\nA,\n");
    EXPECT_EQ(skipped.status, 2);
    EXPECT_EQ(skipped.output, "0 contacts taken, 1 skipped.\n");
}

TEST_F(Contacts, AreTakenAllOrNone) {
    sqlite3(database, "CREATE TRIGGER refuse BEFORE INSERT ON SMS_CONTACTS WHEN NEW.NAME = 'B' "
                      "BEGIN SELECT RAISE(ABORT, 'no room for B'); END");
    const Outcome outcome = imported("book.csv", "Name,Mobile\nA,1\nB,2\nC,3\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.errors, HasSubstr("no room for B"));
    EXPECT_EQ(rows("COUNT(*)"), "0\n");
}

TEST_F(Contacts, AreNotTakenIntoADatabaseThatIsNotThere) {
    writeFile(folder / "book.vcf", twoCards);
    EXPECT_THAT(failed(2, {"contacts", "import", "book.vcf", "--database", "none.db"}),
                HasSubstr("none.db does not exist"));
    EXPECT_THAT(failed(2, {"contacts", "list", "--database", "none.db"}),
                HasSubstr("none.db does not exist"));
}

TEST_F(Contacts, AreListedEachOnItsLine) {
    sqlite3(
        database,
        "INSERT INTO SMS_CONTACTS (ID, USER_ID, NAME, MOBILE, DELETED) VALUES "
        "(12, 1, 'a' || char(10, 9) || '\\ O''Neill 🌙', '98 11', 0), (3, NULL, 'Desk', '1', 0), "
        "(4, 2, 'Another''s', '2', 0), (5, 1, 'Deleted', '3', 1), (6, 1, NULL, NULL, 0)");
    EXPECT_EQ(done({"contacts", "list"}), "3\tDesk\t1\n6\t\t\n12\ta\\n\\t\\\\ O'Neill 🌙\t98 11\n");
}

TEST_F(Contacts, WantToBeToldWhatToDo) {
    for (const std::vector<std::string> &words : {std::vector<std::string>{"contacts"},
                                                  {"contacts", "import"},
                                                  {"contacts", "lst"},
                                                  {"contacts", "list", "all"},
                                                  {"contacts", "import", "a.vcf", "b.vcf"}}) {
        EXPECT_THAT(failed(2, words), HasSubstr("kvexrules contacts import FILE"));
    }
}

TEST_F(Contacts, ComeByTheThousand) {
    std::string text = "Name,Mobile\n";
    for (int i = 1; i <= 50000; ++i) {
        text += "Contact " + std::to_string(i) + ",98" + std::to_string(i) + "\n";
    }
    EXPECT_EQ(imported("book.csv", text).output, "50000 contacts taken, 0 skipped.\n");
    EXPECT_EQ(rows("COUNT(*), COUNT(DISTINCT MOBILE)"), "50000|50000\n");
}

} // namespace
} // namespace kvex::process

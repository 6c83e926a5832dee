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
    /// Runs "contacts import -" with this text on its standard input.
    Outcome importedFromInput(const std::string &text) const {
        writeFile(folder / "input", text);
        const std::string line = program.string() + " contacts import - < input";
        return run("/bin/sh", {"-c", line}, environment, folder.path());
    }
    /// Adds contacts of user 1, or of nobody, with the database's own client.
    void addContacts(const std::string &values) const {
        sqlite3(database, "INSERT INTO SMS_CONTACTS (ID, USER_ID, NAME, MOBILE) VALUES " + values);
    }
    std::string rows(const std::string &columns = "USER_ID, NAME, MOBILE") const {
        return sqlite3(database, "SELECT " + columns + " FROM SMS_CONTACTS ORDER BY ID");
    }

    static constexpr const char *twoCards = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Asha Rao\r\n"
                                            "TEL;TYPE=CELL:9811100011\r\nEND:VCARD\r\n"
                                            "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:अनिल 🚨\r\n"
                                            "TEL;VALUE=uri:tel:+91-98111\r\nEND:VCARD\r\n";
};

TEST_F(Contacts, AreImportedFromVCards) {
    const Outcome outcome = imported("book.vcf", twoCards);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "2 contacts added, 0 skipped.\n");
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(rows(), "1|Asha Rao|9811100011\n1|अनिल 🚨|+91-98111\n");
}

TEST_F(Contacts, AreImportedFromATable) {
    EXPECT_EQ(imported("book.csv", "Name;Mobile\nRao, Asha;98\n").output,
              "1 contact added, 0 skipped.\n");
    EXPECT_EQ(rows(), "1|Rao, Asha|98\n");
}

TEST_F(Contacts, BelongToTheUserWhoIsNamed) {
    EXPECT_EQ(imported("book.csv", "Name,Mobile\nA,98\n", {"--user", "7"}).status, 0);
    EXPECT_EQ(rows(), "7|A|98\n");
    EXPECT_EQ(done({"contacts", "list"}), "");
    EXPECT_EQ(done({"contacts", "list", "--user", "7"}), "1\tA\t98\n");
}

TEST_F(Contacts, AreNotImportedTwice) {
    imported("book.vcf", twoCards);
    const Outcome again = imported("book.vcf", twoCards);
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.output, "0 contacts added, 2 already there, 0 skipped.\n");
    EXPECT_EQ(rows("COUNT(*)"), "2\n");
}

TEST_F(Contacts, ThatCannotBeReadAreNamedWithTheirLine) {
    const Outcome cards =
        imported("book.vcf", std::string(twoCards) + "BEGIN:VCARD\nVERSION:4.0\nFN:B\nEND:VCARD\n"
                                                     "BEGIN:VCARD\nVERSION:2.1\nTEL:1\n");
    EXPECT_EQ(cards.status, 1);
    EXPECT_EQ(cards.output, "2 contacts added, 2 skipped.\n");
    EXPECT_EQ(cards.errors, "kvexrules: book.vcf:11: the card has no telephone number; skipped\n"
                            "kvexrules: book.vcf:15: the card has no END; skipped\n");
    const Outcome table = imported("book.csv", "Name,Mobile\nA,\nB,2\n");
    EXPECT_EQ(table.status, 1);
    EXPECT_EQ(table.errors, "kvexrules: book.csv:2: the row has no telephone number; skipped\n");
}

TEST_F(Contacts, CannotBeImportedFromAFileThatHoldsNone) {
    writeFile(folder / "head.csv", "Name,Mobile\n");
    EXPECT_EQ(failed(2, {"contacts", "import", "head.csv"}),
              "kvexrules: head.csv holds no contacts that can be read. Its first row names the "
              "columns, but no row follows.\n");
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
    EXPECT_EQ(skipped.output, "0 contacts added, 1 skipped.\n");
}

TEST_F(Contacts, CannotBeImportedFromAnEndlessOrEmptyFile) {
    EXPECT_EQ(failed(2, {"contacts", "import", "/dev/zero"}),
              "kvexrules: /dev/zero is longer than 256 MiB. Name a vCard or CSV file, or split it "
              "into several files.\n");
    EXPECT_EQ(failed(2, {"contacts", "import", "/dev/null"}),
              "kvexrules: /dev/null is empty. Name a vCard or CSV file.\n");
    const Outcome binary = kvexrules({"contacts", "import", program.string()});
    EXPECT_EQ(binary.status, 2);
    EXPECT_THAT(binary.errors, HasSubstr("It is not text: it holds bytes of value 0."));
}

TEST_F(Contacts, CannotBeImportedIntoAMissingTable) {
    sqlite3(database, "DROP TABLE SMS_CONTACTS");
    EXPECT_EQ(imported("book.vcf", twoCards).status, 2);
}

TEST_F(Contacts, AreImportedAllOrNone) {
    sqlite3(database, "CREATE TRIGGER refuse BEFORE INSERT ON SMS_CONTACTS WHEN NEW.NAME = 'B' "
                      "BEGIN SELECT RAISE(ABORT, 'no room for B'); END");
    const Outcome outcome = imported("book.csv", "Name,Mobile\nA,1\nB,2\nC,3\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.errors, HasSubstr("no room for B"));
    EXPECT_EQ(rows("COUNT(*)"), "0\n");
}

TEST_F(Contacts, AreImportedFromStandardInput) {
    const Outcome outcome = importedFromInput(twoCards + std::string("FN:A\n"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "2 contacts added, 1 skipped.\n");
    EXPECT_EQ(outcome.errors,
              "kvexrules: standard input:11: the text belongs to no card; skipped\n");
    EXPECT_EQ(rows("NAME"), "Asha Rao\nअनिल 🚨\n");
}

TEST_F(Contacts, AreImportedFromUtf16) {
    using namespace std::string_literals;
    EXPECT_EQ(imported("book.csv", "\xFF\xFEN\0a\0m\0e\0;\0T\0e\0l\0\n\0\x05\x09;\0"s
                                   "9\0\n\0"s)
                  .output,
              "1 contact added, 0 skipped.\n");
    EXPECT_EQ(rows(), "1|अ|9\n");
}

TEST_F(Contacts, AreReadAsWindows1252WithAMessage) {
    const Outcome outcome = imported("book.csv", "Name,Mobile\nRen\xE9,98\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "kvexrules: book.csv is not UTF-8, so it was read as Windows-1252. "
                              "Check the names: kvexrules contacts list.\n");
    EXPECT_EQ(rows(), "1|René|98\n");
}

TEST_F(Contacts, ThatWereStoredAreCountedOnStandardErrorWhenTheOutputFails) {
    writeFile(folder / "book.vcf", twoCards);
    const Outcome full = kvexrules({"contacts", "import", "book.vcf"}, Output::full);
    EXPECT_EQ(full.status, 1);
    EXPECT_EQ(full.errors,
              "kvexrules: 2 contacts added, 0 skipped. The output cannot be written (No space left "
              "on device). Redirect it to a terminal, a pipe or a disk with free space.\n");
    EXPECT_EQ(rows("COUNT(*)"), "2\n");
    const Outcome gone = kvexrules({"contacts", "import", "book.vcf"}, Output::withoutReader);
    EXPECT_EQ(gone.status, 0);
    EXPECT_EQ(gone.errors, "kvexrules: 0 contacts added, 2 already there, 0 skipped.\n");
}

TEST_F(Contacts, AreRemovedByTheirIds) {
    addContacts("(3, 1, 'A', '1'), (4, NULL, 'B', '2'), (5, 1, 'C', '3')");
    EXPECT_EQ(done({"contacts", "remove", "4", "3", "4"}), "2 contacts removed.\n");
    EXPECT_EQ(done({"contacts", "list"}), "5\tC\t3\n");
    EXPECT_EQ(rows("ID, DELETED"), "3|1\n4|1\n5|0\n");
    EXPECT_EQ(done({"contacts", "remove", "5"}), "1 contact removed.\n");
}

TEST_F(Contacts, AreNotRemovedWhereOneIsNotThere) {
    addContacts("(3, 1, 'A', '1'), (4, 2, 'Another''s', '2')");
    EXPECT_EQ(failed(1, {"contacts", "remove", "3", "4", "9"}),
              "kvexrules: There are no contacts 4 and 9, so none was removed. The ids are the "
              "numbers that kvexrules contacts list shows.\n");
    EXPECT_EQ(failed(1, {"contacts", "remove", "9"}),
              "kvexrules: There is no contact 9, so none was removed. The ids are the numbers "
              "that kvexrules contacts list shows.\n");
    EXPECT_EQ(rows("ID, DELETED"), "3|0\n4|0\n");
    EXPECT_EQ(failed(2, {"contacts", "remove", "3", "x"}),
              "kvexrules: \"x\" is not the id of a contact. The ids are the numbers that kvexrules "
              "contacts list shows.\n");
    sqlite3(database, "CREATE TRIGGER refuse BEFORE UPDATE ON SMS_CONTACTS "
                      "BEGIN SELECT RAISE(ABORT, 'not now'); END");
    EXPECT_THAT(failed(1, {"contacts", "remove", "3"}), HasSubstr("not now"));
    EXPECT_THAT(failed(2, {"contacts", "remove", "3", "--database", "none.db"}),
                HasSubstr("none.db does not exist"));
}

TEST_F(Contacts, AreExportedAsVCardsOrCsv) {
    addContacts("(3, NULL, 'Desk', '1'), (4, 2, 'Another''s', '2'), (5, 1, 'Rao, \"A\"', '98')");
    const std::string cards = "BEGIN:VCARD\r\nVERSION:4.0\r\nFN:Desk\r\nTEL;TYPE=cell:1\r\n"
                              "END:VCARD\r\nBEGIN:VCARD\r\nVERSION:4.0\r\nFN:Rao\\, \"A\"\r\n"
                              "TEL;TYPE=cell:98\r\nEND:VCARD\r\n";
    const std::string table = "Name,Mobile\r\nDesk,1\r\n\"Rao, \"\"A\"\"\",98\r\n";
    EXPECT_EQ(done({"contacts", "export"}), cards);
    EXPECT_EQ(done({"contacts", "export", "-"}), cards);
    EXPECT_EQ(done({"contacts", "export", "--format", "csv"}), table);
    EXPECT_EQ(done({"contacts", "export", "book.CSV"}), "2 contacts written.\n");
    EXPECT_EQ(readFile(folder / "book.CSV"), table);
    EXPECT_EQ(done({"contacts", "export", "odd.csv", "--format", "vcard"}),
              "2 contacts written.\n");
    EXPECT_EQ(readFile(folder / "odd.csv"), cards);
    EXPECT_EQ(done({"contacts", "export", "--format", "csv", "--user", "2"}),
              "Name,Mobile\r\nDesk,1\r\nAnother's,2\r\n");
    EXPECT_EQ(failed(2, {"contacts", "export", "--format", "html"}),
              "kvexrules: There is no format \"html\". The formats are vcard and csv.\n");
}

TEST_F(Contacts, AreExportedIntoAFileForItsOwnerThatIsReplacedOnlyOnRequest) {
    addContacts("(3, 1, 'A', '1')");
    EXPECT_EQ(done({"contacts", "export", "book.vcf"}), "1 contact written.\n");
    const auto permissions = std::filesystem::status(folder / "book.vcf").permissions();
    EXPECT_EQ(static_cast<int>(permissions), 0600);
    writeFile(folder / "book.vcf", "mine");
    EXPECT_EQ(failed(1, {"contacts", "export", "book.vcf"}),
              "kvexrules: book.vcf already exists and was not changed. Name another file, or add "
              "--replace.\n");
    EXPECT_EQ(readFile(folder / "book.vcf"), "mine");
    std::filesystem::permissions(folder / "book.vcf", std::filesystem::perms::all);
    done({"contacts", "export", "book.vcf", "--replace"});
    EXPECT_THAT(readFile(folder / "book.vcf"), HasSubstr("FN:A\r\n"));
    EXPECT_EQ(static_cast<int>(std::filesystem::status(folder / "book.vcf").permissions()), 0600);
    EXPECT_EQ(failed(2, {"contacts", "export", "none/book.vcf"}),
              "kvexrules: none/book.vcf cannot be written (No such file or directory). Name a file "
              "in a folder that you may write to, on a disk with free space.\n");
    std::filesystem::create_directory(folder / "sub");
    EXPECT_EQ(failed(2, {"contacts", "export", "sub", "--replace"}),
              "kvexrules: sub cannot be written (Is a directory). Name a file in a folder that "
              "you may write to, on a disk with free space.\n");
    std::size_t files = 0;
    for (const auto &entry : std::filesystem::directory_iterator(folder.path())) {
        files += entry.path().filename().string().starts_with("sub") ||
                         entry.path().filename().string().starts_with("book")
                     ? 1
                     : 0;
    }
    EXPECT_EQ(files, 2U) << "a half-written file was left";
}

TEST_F(Contacts, ThatWereExportedAreTheSameWhenImported) {
    addContacts("(1, 1, 'अनिल 🚨', '+91 98-11'), (2, 1, 'O''Neill \"Ace\", \\; Rao', '98,99'), "
                "(3, 1, 'Line' || char(13, 10) || 'break', '(98) 11'), (4, NULL, '', '77'), "
                "(5, 1, '" +
                std::string(90, 'x') + "é', '78')");
    sqlite3(database, "UPDATE SMS_CONTACTS SET MOBILE = '12' WHERE ID = 2");
    for (const std::string file : {"book.vcf", "book.csv"}) {
        done({"contacts", "export", file});
        EXPECT_EQ(done({"contacts", "import", file, "--user", "1"}),
                  "1 contact added, 4 already there, 0 skipped.\n")
            << "a contact of nobody was not added for the user";
        sqlite3(database, "DELETE FROM SMS_CONTACTS WHERE ID > 5");
        EXPECT_EQ(done({"contacts", "import", file, "--user", "7"}),
                  "5 contacts added, 0 skipped.\n");
        EXPECT_EQ(sqlite3(database, "SELECT NAME, MOBILE FROM SMS_CONTACTS WHERE USER_ID = 7 "
                                    "ORDER BY ID"),
                  "अनिल 🚨|+91 98-11\nO'Neill \"Ace\", \\; Rao|12\nLine break|(98) 11\n77|77\n" +
                      std::string(90, 'x') + "é|78\n");
        sqlite3(database, "DELETE FROM SMS_CONTACTS WHERE USER_ID = 7");
    }
}

TEST_F(Contacts, CannotBeImportedIntoAMissingDatabase) {
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

TEST_F(Contacts, ShowTheProgressOfAnImportOnATerminal) {
    writeFile(folder / "a.csv", "Name,Mobile\nMeera,98111\nRavi,98112\n");
    environment["TERM"] = "xterm";
    EXPECT_EQ(atTerminal({"contacts", "import", "a.csv"}).output,
              "\rImporting contacts\x1b[K\rImporting contacts: 50 %\x1b[K"
              "\rImporting contacts: 100 %\x1b[K\r\x1b[K2 contacts added, 0 skipped.\n");
    EXPECT_EQ(done({"contacts", "import", "a.csv"}),
              "0 contacts added, 2 already there, 0 skipped.\n");
}

TEST_F(Contacts, AreRefusedWithWrongWords) {
    for (const std::vector<std::string> &words : {std::vector<std::string>{"contacts"},
                                                  {"contacts", "import"},
                                                  {"contacts", "lst"},
                                                  {"contacts", "list", "all"},
                                                  {"contacts", "remove"},
                                                  {"contacts", "export", "a", "b"},
                                                  {"contacts", "import", "a.vcf", "b.vcf"}}) {
        EXPECT_THAT(failed(2, words), HasSubstr("See: kvexrules help contacts"));
    }
}

TEST_F(Contacts, TakeOptionsOnlyWhereTheyBelong) {
    EXPECT_EQ(failed(2, {"contacts", "list", "--format", "csv"}),
              "kvexrules: The command contacts list has no option --format. See: kvexrules help "
              "contacts list\n");
    EXPECT_EQ(failed(2, {"contacts", "import", "a.vcf", "--replace"}),
              "kvexrules: The command contacts import has no option --replace. See: kvexrules help "
              "contacts import\n");
}

} // namespace
} // namespace kvex::process

#include "host/kvexrules/Database.h"

#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "tests/host/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kvex::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class FirstDatabase : public testing::Test {
protected:
    kvex::host::Settings named(const std::string &database) const {
        kvex::host::Settings settings;
        settings.database = database;
        settings.databaseOrigin = "The database was named by --database.";
        return settings;
    }

    /// Answers every question with `answer`, and keeps the questions.
    Question answering(std::optional<bool> answer) {
        return [this, answer](std::string_view text) {
            questions.emplace_back(text);
            return answer;
        };
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder / "rules.db";
    std::vector<std::string> questions;
};

TEST_F(FirstDatabase, IsMadeWhenTheUserAgrees) {
    offerDatabase(named(file), answering(true));
    EXPECT_THAT(questions, ElementsAre("The database file " + file.string() +
                                       " does not exist. The database was named by --database. "
                                       "Make it, without rules?"));
    EXPECT_TRUE(rulesOf(named(file)).empty());
    EXPECT_EQ(std::filesystem::status(file).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(FirstDatabase, IsNotMadeWhenTheUserDeclines) {
    try {
        offerDatabase(named(file), answering(false));
        ADD_FAILURE() << "no Failure was raised";
    } catch (const Failure &failure) {
        EXPECT_EQ(failure.what(), "The database file " + file.string() +
                                      " does not exist, and was not made. Make it with kvexrules "
                                      "init, or name another database.");
        EXPECT_EQ(failure.status(), exit_status::unusable);
    }
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(FirstDatabase, IsNotMadeWhereNobodyCanBeAsked) {
    offerDatabase(named(file), answering(std::nullopt));
    EXPECT_EQ(questions.size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(FirstDatabase, IsTheUsersOwnAndHasItsFolderMade) {
    kvex::host::Settings settings = named(folder / "data/kvex/rules.db");
    settings.isOwnDatabase = true;
    offerDatabase(settings, answering(true));
    EXPECT_TRUE(std::filesystem::exists(folder / "data/kvex/rules.db"));
    EXPECT_EQ(std::filesystem::status(folder / "data/kvex").permissions(),
              std::filesystem::perms::owner_all);
}

TEST_F(FirstDatabase, IsNotMadeInAFolderThatIsMissing) {
    try {
        offerDatabase(named(folder / "no/rules.db"), answering(true));
        ADD_FAILURE() << "went on";
    } catch (const Failure &failure) {
        EXPECT_EQ(failure.what(), "The database file " + (folder / "no/rules.db").string() +
                                      " cannot be made. Check that its folder exists, and that you "
                                      "may write to it. The database was named by --database.");
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "no"));
}

TEST_F(FirstDatabase, MayBeNamedByAConnectionString) {
    EXPECT_EQ(missingFile(named("Provider=SQLite;Data Source=" + file.string())), file.string());
    EXPECT_EQ(missingFile(named(file)), file.string());
}

TEST_F(FirstDatabase, IsOfferedOnlyWhereAFileIsMissing) {
    writeFile(file, "");
    for (const std::string &name :
         {file.string(), folder.path().string(), "Provider=SQLite;Data Source=" + file.string(),
          std::string("DSN=none"), std::string("Provider=SQLite"), std::string("Provider=Paper"),
          std::string("Provider=SQLite;none"), std::string(":memory:"),
          "file:" + (folder / "no.db").string()}) {
        EXPECT_EQ(missingFile(named(name)), std::nullopt) << name;
        offerDatabase(named(name), answering(true));
    }
    EXPECT_TRUE(questions.empty());
}

} // namespace
} // namespace kvex::host

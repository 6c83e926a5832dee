#include "host/suite/Advice.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace kvex::host {
namespace {

using enum HelpContext;

const std::string rulesAgain = "open the rules again and repeat the change.";

/// The advice in the rules windows.
const std::map<HelpContext, std::string> advice{
    {cannotConnect, "Check that the server runs, and that the connection string has the right "
                    "server, port and database. Then try again."},
    {noDriver, "Install the driver, or name another one that odbcinst -q -d lists."},
    {noDataSource, "Name a data source that odbcinst -q -s lists, or a driver that odbcinst -q -d "
                   "lists."},
    {wrongUser, "Correct UID and PWD in the connection string."},
    {noFile, "Make it with kvexrules init, or name another database."},
    {notADatabase, "Name the file of the server's database."},
    {cutOff, "Wait until it is back, or name another node as Server in the connection string."},
    {cannotMake, "Check that its folder exists, and that you may write to it."},
    {connectionLost, "As soon as the server can be reached, " + rulesAgain},
    {forbidden, "Ask the administrator of the database for the right to do this. To write an "
                "SQLite file, you need the right to write its folder, too."},
    {noTable, "Make the tables with kvexrules init, or name another database."},
    {badStatement, "Check that its tables are those of the server, or name another database."},
    {constraint, "Change these values, then try again."},
    {tooLong, "Shorten the text, then try again."},
    {badValue, "Change the value, then try again."},
    {locked, "Wait until the other program has finished, then try again."},
    {lockedOrCutOff, "Try again. If that does not help, " + rulesAgain},
    {noAnswer,
     "Try again, or allow more time with Connect Timeout=SECONDS in the connection string."},
    {diskFull, "Free some space on it, then try again."},
    {inputOutput, "Check the disk, then try again."},
    {damaged, "Restore it from a backup."},
    {fileMoved,
     "Put the file back and try again. To use the file that is there now, " + rulesAgain},
    {failed, "Try again. If that does not help, " + rulesAgain},
    {noNewKey, "Use another kind of database to make new rules."},
    {changedByAnother, "To change what is stored now, " + rulesAgain},
    {noPrimaryKey, "Make the column ID the primary key of this table, or name another database."},
    {valueNotKept, "Write this value again in the database, as text in UTF-8. Then " + rulesAgain},
    {newerSchema,
     "To change anything, use the newer version of this program that upgraded the tables."},
    {ruleReadInPart,
     "The editor shows what was read before the error. OK in the editor replaces the whole rule "
     "with what it shows. To keep the rule, press Cancel and correct its row in the database. The "
     "columns QueryParam and ActionParam of SMS_RULES hold its texts; kvexrules show ID prints "
     "them."},
    {listEndsEarly,
     "Nothing from there on is listed, and OK stores only what is listed. Open the rules again. If "
     "the list still ends there, correct that place in the database: each row needs an ID, and a "
     "rule also needs a name, a value in ACTIVE and a priority of at most 8 digits."},
    {ruleNotStored, "The editor keeps what you entered. Put that right and press OK again; a new "
                    "name, for example, may have no apostrophe ('). If that does not help, " +
                        rulesAgain},
    {ruleNotRemoved, "Try again. If that does not help, " + rulesAgain},
    {orderNotStored, "Open the rules again to see their order, and repeat what is missing."},
};

std::string inPlaceOf(std::string text, const std::string &before, const std::string &after) {
    if (const std::size_t at = text.find(before); at != std::string::npos) {
        text.replace(at, before.size(), after);
    }
    return text;
}

} // namespace

TEST(Advice, IsKnownForEachContext) {
    std::map<HelpContext, std::string> known;
    for (std::int32_t value = 0; value < 100; ++value) {
        const auto context = static_cast<HelpContext>(value);
        if (const auto text = adviceFor(context, Place::rulesWindows); !text.empty()) {
            known[context] = toUtf8(text);
        }
    }
    EXPECT_EQ(known, advice);
}

TEST(Advice, DiffersBetweenPlacesInHowTheUserBeginsAnew) {
    for (const auto &[context, text] : advice) {
        EXPECT_EQ(toUtf8(adviceFor(context, Place::addressBook)),
                  inPlaceOf(text, rulesAgain, "open the address book again."));
        EXPECT_EQ(toUtf8(adviceFor(context, Place::terminal)),
                  inPlaceOf(text, rulesAgain, "run the command again."));
    }
}

TEST(Advice, FollowsTheDescription) {
    EXPECT_EQ(
        withAdvice(Error(-1, u"The database D is damaged (x).", u"", damaged), Place::terminal),
        u"The database D is damaged (x). Restore it from a backup.");
    EXPECT_EQ(withAdvice(Error(13), Place::rulesWindows), u"Type mismatch");
}

} // namespace kvex::host

#include "host/suite/Advice.h"

namespace kvex::host {
namespace {

std::u16string beginAnew(Place place) {
    switch (place) {
    case Place::rulesWindows:
        return u"open the rules again and repeat the change.";
    case Place::addressBook:
        return u"open the address book again.";
    case Place::terminal:
        break;
    }
    return u"run the command again.";
}

} // namespace

std::u16string adviceFor(HelpContext context, Place place) {
    const std::u16string anew = beginAnew(place);
    switch (context) {
    case HelpContext::none:
        break;
    case HelpContext::cannotConnect:
        return u"Check that the server runs, and that the connection string has the right server, "
               u"port and database. Then try again.";
    case HelpContext::noDriver:
        return u"Install the driver, or name another one that odbcinst -q -d lists.";
    case HelpContext::noDataSource:
        return u"Name a data source that odbcinst -q -s lists, or a driver that odbcinst -q -d "
               u"lists.";
    case HelpContext::wrongUser:
        return u"Correct UID and PWD in the connection string.";
    case HelpContext::noFile:
        return u"Make it with kvexrules init, or name another database.";
    case HelpContext::cannotMake:
        return u"Check that its folder exists, and that you may write to it.";
    case HelpContext::notADatabase:
        return u"Name the file of the server's database.";
    case HelpContext::cutOff:
        return u"Wait until it is back, or name another node as Server in the connection string.";
    case HelpContext::connectionLost:
        return u"As soon as the server can be reached, " + anew;
    case HelpContext::forbidden:
        return u"Ask the administrator of the database for the right to do this. To write an "
               u"SQLite file, you need the right to write its folder, too.";
    case HelpContext::noTable:
        return u"Make the tables with kvexrules init, or name another database.";
    case HelpContext::badStatement:
        return u"Check that its tables are those of the server, or name another database.";
    case HelpContext::constraint:
        return u"Change these values, then try again.";
    case HelpContext::tooLong:
        return u"Shorten the text, then try again.";
    case HelpContext::badValue:
        return u"Change the value, then try again.";
    case HelpContext::locked:
        return u"Wait until the other program has finished, then try again.";
    case HelpContext::lockedOrCutOff:
    case HelpContext::failed:
    case HelpContext::ruleNotRemoved:
        return u"Try again. If that does not help, " + anew;
    case HelpContext::noAnswer:
        return u"Try again, or allow more time with Connect Timeout=SECONDS in the connection "
               u"string.";
    case HelpContext::diskFull:
        return u"Free some space on it, then try again.";
    case HelpContext::inputOutput:
        return u"Check the disk, then try again.";
    case HelpContext::damaged:
        return u"Restore it from a backup.";
    case HelpContext::fileMoved:
        return u"Put the file back and try again. To use the file that is there now, " + anew;
    case HelpContext::noNewKey:
        return u"Use another kind of database to make new rules.";
    case HelpContext::changedByAnother:
        return u"To change what is stored now, " + anew;
    case HelpContext::noPrimaryKey:
        return u"Make the column ID the primary key of this table, or name another database.";
    case HelpContext::valueNotKept:
        return u"Write this value again in the database, as text in UTF-8. Then " + anew;
    case HelpContext::newerSchema:
        return u"To change anything, use the newer version of this program that upgraded the "
               u"tables.";
    case HelpContext::ruleReadInPart:
        return u"The editor shows what was read before the error. OK in the editor replaces the "
               u"whole rule with what it shows. To keep the rule, press Cancel and correct its row "
               u"in the database. The columns QueryParam and ActionParam of SMS_RULES hold its "
               u"texts; kvexrules show ID prints them.";
    case HelpContext::listEndsEarly:
        return u"Nothing from there on is listed, and OK stores only what is listed. Open the "
               u"rules again. If the list still ends there, correct that place in the database: "
               u"each row needs an ID, and a rule also needs a name, a value in ACTIVE and a "
               u"priority of at most 8 digits.";
    case HelpContext::ruleNotStored:
        return u"The editor keeps what you entered. Put that right and press OK again; a new name, "
               u"for example, may have no apostrophe ('). If that does not help, " +
               anew;
    case HelpContext::orderNotStored:
        return u"Open the rules again to see their order, and repeat what is missing.";
    }
    return {};
}

std::u16string withAdvice(const Error &error, Place place) {
    const std::u16string advice = adviceFor(error.helpContext(), place);
    return advice.empty() ? error.description() : error.description() + u" " + advice;
}

} // namespace kvex::host

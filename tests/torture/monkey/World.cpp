#include "tests/torture/monkey/World.h"

#include "platform/Text.h"
#include "tests/databases/SqliteSchema.h"

#include <array>
#include <cstdlib>
#include <filesystem>

namespace kvex::torture {
namespace {

struct RuleTexts {
    std::u16string_view query, action;
};

/// What the rules of a world hold, in turn. The editor writes each of them back as it stands.
constexpr std::array rulesOfAWorld{
    RuleTexts{u"<ALLMESSAGES>", u"<DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>"},
    RuleTexts{u"<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><PEOPLE><CON><ANY>9811100011;9811100022"
              u"</PEOPLE><ACCOUNT><NOT><ANY>2;4</ACCOUNT><WORD><NOT><ALL>STOP;HALT</WORD>"
              u"<DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>",
              u"<DIST>3;7</DIST><REPLY>Received;2</REPLY><ALERT>New message;2;9811100033;"
              u"9811100044</ALERT><DELETE>NO</DELETE><IGNOREFURTHERRULES>YES"
              u"</IGNOREFURTHERRULES>"},
    RuleTexts{u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ANY><ASCOMMAND>BAL;शेष</WORD>",
              u"<REPLY>आपका शेष 😀;5</REPLY><DELETE>YES</DELETE><IGNOREFURTHERRULES>YES"
              u"</IGNOREFURTHERRULES>"},
    RuleTexts{u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><DATETIME>20240229 00:00:00,20240229 "
              u"23:59:59</DATETIME>",
              u"<DIST>3</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>"},
    RuleTexts{u"<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><NOT><ANY>9811100011</PEOPLE>",
              u"<ALERT>It's late;4;9811100055</ALERT><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO"
              u"</IGNOREFURTHERRULES>"},
};

std::u16string number(int value) {
    return toText(std::int64_t{value});
}

std::u16string asSql(std::u16string_view text) {
    std::u16string result = u"'";
    for (const char16_t unit : text) {
        result.append(unit == u'\'' ? 2 : 1, unit);
    }
    return result + u"'";
}

} // namespace

void preferMemory() {
    if (std::filesystem::is_directory("/dev/shm")) {
        setenv("TMPDIR", "/dev/shm", 0);
    }
}

World::World(int rules, int ranking)
    : file_(fromUtf8((folder_ / "rules.db").string())), other_(toUtf8(file_)) {
    test::createSqliteSchema(file_);
    other_.run(u"PRAGMA synchronous = OFF");
    other_.run(u"BEGIN");
    addPeople();
    addRules(rules, ranking);
    other_.run(u"COMMIT");
}

std::u16string World::connectionString() const {
    return u"Provider=SQLite;Data Source=" + file_ + u";Busy Timeout=0";
}

void World::addPeople() {
    other_.run(u"INSERT INTO SMS_USERS (ID, NAME) VALUES (1, 'SYSTEM'), (3, 'Asha'), (7, 'José "
               u"Müller'), (8, 'दिल्ली'), (9, NULL), (11, 'Asha Rao')");
    other_.run(u"INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) VALUES (2, 'Main modem', "
               u"'TRANSCEIVER'), (4, 'Receiver', 'RECEIVER'), (5, 'Sender', 'transmitter'), "
               u"(6, 'दिल्ली कार्यालय', 'TRANSCEIVER'), (7, NULL, 'TRANSCEIVER'), (8, 'Main', NULL)");
    other_.run(u"INSERT INTO SMS_SERVICE (ID, NAME) VALUES (1, 'Weather')");
    other_.run(u"INSERT INTO SMS_SERVICECOMMANDS (SERVICE_ID, NAME) VALUES (1, 'RAIN')");
    other_.run(u"INSERT INTO SMS_CONTACTS (USER_ID, NAME, MOBILE) VALUES (1, 'Asha', "
               u"'9811100011'), (1, 'Ben', '98111 00022'), (1, 'Office', '+91-11-5550'), "
               u"(1, 'Nobody', ''), (NULL, 'दिल्ली', '9811100033'), (2, 'Not mine', '1')");
}

void World::addRules(int rules, int ranking) {
    constexpr std::array steps{1, 10, 0};
    for (int rule = 1; rule <= rules; ++rule) {
        const auto &[query, action] =
            rulesOfAWorld[static_cast<std::size_t>(rule - 1) % rulesOfAWorld.size()];
        other_.run(u"INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE) "
                   u"VALUES (" +
                   asSql(u"Rule " + number(rule)) + u", " + asSql(query) + u", " + asSql(action) +
                   u", " + number(rule * steps[static_cast<std::size_t>(ranking) % steps.size()]) +
                   u", " + number(rule % 2) + u")");
    }
}

void World::act(const Event &event) {
    const std::u16string rule =
        event.numbers.empty() ? u"" : u" WHERE ID = " + number(event.numbers.front());
    switch (event.kind) {
    case EventKind::otherLocks:
        if (!locked_) {
            other_.run(u"BEGIN IMMEDIATE");
            locked_ = true;
        }
        break;
    case EventKind::otherFrees:
        break;
    case EventKind::otherRenames:
        other_.run(u"UPDATE SMS_RULES SET Name = Name || '+'" + rule);
        break;
    case EventKind::otherSwitches:
        other_.run(u"UPDATE SMS_RULES SET ACTIVE = 1 - ACTIVE" + rule);
        break;
    case EventKind::otherRewrites:
        other_.run(u"UPDATE SMS_RULES SET QueryParam = '<ALLMESSAGES>'" + rule);
        break;
    case EventKind::otherRemoves:
        other_.run(u"DELETE FROM SMS_RULES" + rule);
        break;
    case EventKind::otherUnranks:
        other_.run(u"UPDATE SMS_RULES SET PRIORITY = NULL" + rule);
        break;
    case EventKind::otherAdds:
        other_.run(u"INSERT INTO SMS_RULES (Name, QueryParam, ActionParam) VALUES ('Other " +
                   number(++added_) +
                   u"', '<ALLMESSAGES>', '<DELETE>YES</DELETE>"
                   u"<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>')");
        break;
    default:
        return;
    }
    if (locked_ && event.kind != EventKind::otherLocks) {
        other_.run(u"COMMIT");
        locked_ = false;
    }
    readVersion_.clear();
}

const Tables &World::tables() {
    if (const std::u16string now = version(); now != readVersion_) {
        tables_ = readTables(other_);
        readVersion_ = now;
    }
    return tables_;
}

} // namespace kvex::torture

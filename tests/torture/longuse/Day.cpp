// day_torture: the edits of a whole day in one session with many rules. At the end each rule must
// be as the user left it.
#include "adapters/sqlite/Provider.h"
#include "platform/Text.h"
#include "tests/databases/SqliteSchema.h"
#include "tests/support/ComponentTest.h"
#include "tests/torture/Share.h"
#include "tests/torture/longuse/Resources.h"
#include "tests/torture/monkey/Tables.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace kvex;
using namespace kvex::torture;
using test::Key;
using test::User;
using Clock = std::chrono::steady_clock;

/// A day has this many edits, one every ten seconds.
constexpr std::uint64_t editsOfADay = 8640;
constexpr std::uint64_t shortShare = 300;
constexpr int usualRules = 2000;
/// By then everything that is kept for the session has been allocated.
constexpr std::uint64_t settledAfter = 100;

class Day {
public:
    Day(Share share, int rules);

    /// Returns how many findings there are.
    int play();

private:
    void playWindow(User &user);
    void edit(User &user);
    void tick(User &user, int row);
    void rename(User &user, int row);
    void move(User &user, int row);
    void add(User &user);
    void remove(User &user, int row);
    void check(const std::string &what, bool holds);
    void checkTables();

    [[nodiscard]] static ListView &rulesIn(User &user) { return user.get<ListView>(u"lvwRules"); }
    [[nodiscard]] static std::int64_t idIn(User &user, int row) {
        return toInt64(rulesIn(user).subItem(row, 2));
    }
    [[nodiscard]] int below(int count) {
        return static_cast<int>(random_() % static_cast<unsigned>(count));
    }

    Share share_;
    test::TemporaryFolder folder_;
    std::string file_ = (folder_ / "rules.db").string();
    test::OtherProgram other_{file_};
    test::UtilityRecord utility_;
    headless::HeadlessToolkit toolkit_;
    test::TestPlatform platform_{utility_, toolkit_, sqlite::provider()};
    std::mt19937_64 random_;
    /// What the user does in the next editor.
    test::Script inEditor_ = [](User &user) { user.press(Key::escape); };
    /// The rules as the user left them; the priorities are those that OK must give.
    Tables expected_;
    std::uint64_t edits_ = 0;
    std::uint64_t named_ = 0;
    Clock::duration slowest_{};
    Resources settled_, atEnd_;
    int findings_ = 0;
};

Day::Day(Share share, int rules) : share_(std::move(share)) {
    test::createSqliteSchema(fromUtf8(file_));
    other_.run(
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
        toText(std::int64_t{rules}) +
        u") INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE) SELECT "
        u"'Rule ' || i, '<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>98' || (11100000 "
        u"+ i) || '</PEOPLE>', "
        u"'<REPLY>Received;2</REPLY><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO"
        u"</IGNOREFURTHERRULES>', i, i % 2 FROM n");
    other_.run(u"INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) VALUES (2, 'Main modem', "
               u"'TRANSCEIVER')");
    expected_ = readTables(other_);
    utility_.connectionString = fromUtf8(file_);
    toolkit_.whenAnyShown([this](User &user) { playWindow(user); });
}

void Day::playWindow(User &user) {
    if (user.window().caption() != u"SMS Rules") {
        inEditor_(user);
        return;
    }
    while (edits_ < editsOfADay && share_.next()) {
        const auto begin = Clock::now();
        random_.seed(share_.seed());
        edit(user);
        slowest_ = std::max(slowest_, Clock::now() - begin);
        if (++edits_ == settledAfter) {
            settled_ = resourcesNow();
        }
    }
    atEnd_ = resourcesNow();
    for (int row = 1; row <= rulesIn(user).rowCount(); ++row) {
        expected_.rules[idIn(user, row)].priority = toText(std::int64_t{row});
    }
    user.click(u"cmdOK");
}

void Day::edit(User &user) {
    const int row = 1 + below(rulesIn(user).rowCount());
    const int kind = below(100);
    if (kind < 50) {
        tick(user, row);
    } else if (kind < 75) {
        rename(user, row);
    } else if (kind < 90) {
        move(user, row);
    } else if (kind < 95) {
        add(user);
    } else {
        remove(user, row);
    }
}

void Day::tick(User &user, int row) {
    user.tickRow(u"lvwRules", row);
    std::u16string &active = expected_.rules[idIn(user, row)].active;
    active = active == u"1" ? u"0" : u"1";
}

void Day::rename(User &user, int row) {
    const std::u16string name = u"Renamed " + toText(static_cast<std::int64_t>(++named_));
    inEditor_ = [&](User &editor) {
        editor.focusOn(u"txtRuleName");
        editor.press(Key::selectAll);
        editor.type(name);
        editor.click(u"cmdOK");
    };
    user.clickRow(u"lvwRules", row);
    user.click(u"cmdModify");
    expected_.rules[idIn(user, row)].name = name;
}

void Day::move(User &user, int row) {
    user.clickRow(u"lvwRules", row);
    user.click(u"cmdMoveDown");
}

void Day::add(User &user) {
    const std::u16string name = u"Added " + toText(static_cast<std::int64_t>(++named_));
    inEditor_ = [&](User &editor) {
        editor.tickRow(u"lvwRuleConditions", 6);
        editor.tickRow(u"lvwRuleActions", 4);
        editor.focusOn(u"txtRuleName");
        editor.press(Key::selectAll);
        editor.type(name);
        editor.click(u"cmdOK");
    };
    user.click(u"cmdNew");
    expected_.rules[toInt64(other_.valueOf(u"SELECT MAX(ID) FROM SMS_RULES"))] = {
        name,
        u"<ALLMESSAGES>",
        u"<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>",
        u"0",
        u"1",
        u"0"};
}

void Day::remove(User &user, int row) {
    const std::int64_t id = idIn(user, row);
    utility_.answers = {message_box::yes};
    user.clickRow(u"lvwRules", row);
    user.click(u"cmdRemove");
    expected_.rules.erase(id);
}

void Day::check(const std::string &what, bool holds) {
    if (!holds) {
        ++findings_;
        std::cout << "finding: " << what << '\n';
    }
}

void Day::checkTables() {
    const std::string text = difference(expected_, readTables(other_));
    constexpr std::size_t enough = 2000;
    check("the rules are not as the user left them:" + text.substr(0, enough), text.empty());
}

int Day::play() {
    SessionOwner owner(platform_);
    const auto begin = Clock::now();
    const std::int32_t result = owner.ShowRules(u"1", u"");
    const std::chrono::duration<double> seconds = Clock::now() - begin;
    owner.release();
    check("ShowRules gave " + std::to_string(result), result == 1 || result == 99);
    // The removal of the last row logs an error.
    std::erase_if(utility_.log, [](const test::LogEntry &entry) {
        return entry.text.ends_with(u"Sub: cmdRemove_Click, Module: frmRules") &&
               entry.number == error_number::indexOutOfBounds;
    });
    for (const test::LogEntry &entry : utility_.log) {
        check(toUtf8(entry.text + u": " + entry.description), false);
    }
    for (const std::string &problem : toolkit_.problems()) {
        check(problem, false);
    }
    checkTables();
    std::cout << "day: " << edits_ << " edits among " << expected_.rules.size() << " rules in "
              << seconds.count() << " s, the slowest "
              << std::chrono::duration<double, std::milli>(slowest_).count() << " ms; heap "
              << settled_.bytes << " bytes after " << settledAfter << " edits, " << atEnd_.bytes
              << " at the end; " << findings_ << " findings\n";
    return findings_;
}

} // namespace

int main(int argc, char **argv) {
    countExactly(argv);
    std::vector<const char *> arguments(argv, argv + argc);
    int rules = usualRules;
    if (argc > 2 && std::string_view(argv[1]) == "--rules") {
        rules = std::max(std::atoi(argv[2]), 1);
        arguments.erase(arguments.begin() + 1, arguments.begin() + 3);
    }
    return Day(Share(arguments, shortShare), rules).play() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

#include "tests/torture/storage/Scenarios.h"

#include "platform/Text.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/databases/SqliteSchema.h"

#include <algorithm>

namespace kvex::torture {
namespace {

using headless::User;
using test::Editor;

constexpr int orderedRules = 12;

/// Too long for one page of the database.
std::u16string longWord() {
    return std::u16string(4500, u'w');
}

void press(User &user, const Press &press) {
    press([&] {
        if (user.isOpen()) {
            user.click(u"cmdOK");
        }
    });
    if (user.isOpen()) {
        user.click(u"cmdCancel");
    }
}

void saveNewRule(Editor &editor, const Press &ok) {
    editor.inEditor(u"", [&](User &user) {
        test::completeRule(user);
        test::setWord(user, longWord());
        test::rename(user, u"New");
        press(user, ok);
    });
}

void saveChangedRule(Editor &editor, const Press &ok) {
    editor.inEditor(u"2", [&](User &user) {
        test::setWord(user, longWord());
        test::rename(user, u"Changed");
        press(user, ok);
    });
}

void tick(Editor &editor, const Press &press) {
    editor.inRulesWindow([&](User &user) {
        press([&] { user.tickRow(u"lvwRules", 2); });
        user.click(u"cmdCancel");
    });
}

/// Removes the rule while it is listed.
void removeRule(Editor &editor, const std::u16string &name, const Press &press) {
    editor.inRulesWindow([&](User &user) {
        press([&] {
            const auto rows = user.rows(u"lvwRules");
            if (const auto row = std::ranges::find(rows, name); row != rows.end()) {
                confirmRemoval(editor, user, static_cast<int>(row - rows.begin()) + 1);
            }
        });
        user.click(u"cmdCancel");
    });
}

void removeMiddle(Editor &editor, const Press &press) {
    removeRule(editor, u"Rule 2", press);
}

void removeLast(Editor &editor, const Press &press) {
    removeRule(editor, u"Rule 1", press);
}

void order(Editor &editor, const Press &ok) {
    editor.inRulesWindow([&](User &user) {
        user.clickRow(u"lvwRules", 2);
        user.click(u"cmdMoveUp");
        press(user, ok);
    });
}

std::vector<std::string> orderRowByRow() {
    std::vector<std::string> statements;
    for (int row = 1; row <= orderedRules; ++row) {
        const int rule = row == 1 ? 2 : row == 2 ? 1 : row;
        statements.push_back("UPDATE SMS_RULES SET PRIORITY = " + std::to_string(row) +
                             " WHERE ID = " + std::to_string(rule));
    }
    return statements;
}

} // namespace

std::vector<Scenario> scenarios() {
    return {
        {"a new rule is saved", 3, &saveNewRule},
        {"a changed rule is saved", 3, &saveChangedRule},
        {"a rule is ticked", 3, &tick, true},
        {"a rule is removed", 3, &removeMiddle},
        {"the last rule is removed", 1, &removeLast},
        {"the order is stored", orderedRules, &order, false, orderRowByRow()},
    };
}

void prepareDatabase(const Scenario &scenario, const std::filesystem::path &file) {
    test::createSqliteSchema(fromUtf8(file.string()));
    test::OtherProgram other(file);
    other.run(u"PRAGMA synchronous = OFF; "
              u"INSERT INTO SMS_USERS (NAME) VALUES ('someone'); "
              u"INSERT INTO SMS_ACCOUNT (NAME, BIND_MODE) VALUES ('account', 'TRANSCEIVER'); "
              u"INSERT INTO SMS_CONTACTS (USER_ID, NAME, MOBILE) VALUES (1, 'a contact', '+1')");
    for (int rule = 1; rule <= scenario.rules; ++rule) {
        const std::u16string number = toText(std::int64_t{rule});
        // Each rule fills a good part of a page, so that several pages change.
        other.run(
            u"INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY) VALUES ('Rule " +
            number + u"', '<ALLMESSAGES>" + std::u16string(900, u' ') +
            u"', '<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>', " + number +
            u"0)");
    }
}

} // namespace kvex::torture

#include "tests/support/TestDatabase.h"

#include "platform/Text.h"

#include <cstdlib>
#include <iostream>
#include <stdexcept>

namespace kvex::test {
namespace {

std::string quoted(std::string_view text) {
    std::string result = "'";
    for (const char c : text) {
        result.append(c == '\'' ? 2 : 1, c);
    }
    return result + "'";
}

[[noreturn]] void giveUp(std::string_view sql, const char *why) {
    std::cerr << "the test's own statement failed: " << sql << ": " << why << '\n';
    std::abort();
}

template <class Call> auto orGiveUp(std::string_view sql, const Call &call) {
    try {
        return call();
    } catch (const std::runtime_error &error) {
        giveUp(sql, error.what());
    }
}

} // namespace

TestDatabase::TestDatabase(const DatabaseKind &kind) : fixture_(kind.make()) {}

void TestDatabase::execute(std::string_view sql) {
    orGiveUp(sql, [&] { fixture_->run(fromUtf8(sql)); });
}

std::vector<std::string> TestDatabase::rows(std::string_view sql) {
    std::vector<std::string> result;
    for (const auto &row : orGiveUp(sql, [&] { return fixture_->rows(fromUtf8(sql)); })) {
        result.push_back(toUtf8(row));
    }
    return result;
}

std::string TestDatabase::value(std::string_view sql) {
    return toUtf8(orGiveUp(sql, [&] { return fixture_->valueOf(fromUtf8(sql)); }));
}

std::int64_t TestDatabase::addRule(std::string_view name, std::string_view queryParam,
                                   std::string_view actionParam, int priority, int active) {
    execute("INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE) VALUES (" +
            quoted(name) + "," + quoted(queryParam) + "," + quoted(actionParam) + "," +
            std::to_string(priority) + "," + std::to_string(active) + ")");
    return std::stoll(value("SELECT MAX(ID) FROM SMS_RULES"));
}

void TestDatabase::addUser(int id, std::string_view name) {
    execute("INSERT INTO SMS_USERS (ID, NAME) VALUES (" + std::to_string(id) + "," + quoted(name) +
            ")");
}

void TestDatabase::addAccount(int id, std::string_view name, std::string_view bindMode) {
    execute("INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) VALUES (" + std::to_string(id) + "," +
            quoted(name) + "," + quoted(bindMode) + ")");
}

void TestDatabase::refuseNewRules() {
    orGiveUp("refuse INSERT", [&] { fixture_->refuse(u"INSERT", u""); });
}

void TestDatabase::refuseChanges(std::string_view ofRules) {
    const std::string condition = ofRules.empty() ? "" : "OLD.Name = " + quoted(ofRules);
    orGiveUp("refuse UPDATE", [&] { fixture_->refuse(u"UPDATE", fromUtf8(condition)); });
}

void TestDatabase::permit() {
    orGiveUp("permit", [&] { fixture_->permit(); });
}

} // namespace kvex::test

// Runs every row of docs/format/vectors.json: typed, stored, loaded and written again.
#include "platform/Text.h"
#include "rules/ParameterStrings.h"
#include "tests/format/RuleJson.h"
#include "tests/support/ComponentTest.h"

#include <fstream>

namespace kvex::test {
namespace {

using nlohmann::json;

json rowsOfVectors() {
    std::ifstream file(KVEX_VECTORS);
    json rows = json::parse(file).at("rows");
    EXPECT_GE(rows.size(), 200U);
    return rows;
}

/// A text or Null as a literal of SQL.
std::string literal(const json &column) {
    if (column.is_null()) {
        return "NULL";
    }
    std::string quotedText = "'";
    for (const char unit : utf8(textOf(column))) {
        quotedText.append(unit == '\'' ? 2 : 1, unit);
    }
    return quotedText + "'";
}

void expectWritten(const json &expected, const RuleState &rule) {
    EXPECT_EQ(buildQueryParam(rule), textOf(expected.at("queryParam")));
    EXPECT_EQ(buildActionParam(rule), textOf(expected.at("actionParam")));
}

class Vectors : public ComponentTest {
protected:
    std::int64_t store(const json &row) {
        const auto id = database.addRule("Rule");
        database.execute("UPDATE SMS_RULES SET QueryParam = " + literal(row.at("queryParam")) +
                         ", ActionParam = " + literal(row.at("actionParam")) +
                         " WHERE ID = " + std::to_string(id));
        return id;
    }

    /// The number of the error that ended the loading, or null.
    json load(std::int64_t id) {
        // A rule without words keeps this of the rule before it.
        ruleState().intAsCommand = 0;
        LoadRuleFromDB(toText(id));
        if (utility.log.empty()) {
            return nullptr;
        }
        expectLog({u"Sub: LoadRuleFromDB, Module: General"});
        return logged.at(0).number;
    }
};

TEST_F(Vectors, AreLoadedAsTheySay) {
    const json rows = rowsOfVectors();
    std::vector<std::int64_t> ids;
    for (const json &row : rows) {
        ids.push_back(store(row));
    }
    openSession();
    for (std::size_t at = 0; at < rows.size(); ++at) {
        const json &row = rows.at(at);
        SCOPED_TRACE(row.at("name"));
        const json &error = row.at("error");
        EXPECT_EQ(load(ids.at(at)), error.is_null() ? error : error.at("number"));
        EXPECT_EQ(jsonOf(ruleState()), jsonOf(ruleOf(row.at("rule"))));
    }
}

TEST_F(Vectors, AreWrittenAsTheySay) {
    for (const json &row : rowsOfVectors()) {
        SCOPED_TRACE(row.at("name"));
        expectWritten(row.at("written"), ruleOf(row.at("rule")));
        if (row.contains("typed")) {
            expectWritten(row, ruleOf(row.at("typed")));
        }
    }
}

TEST_F(Vectors, FitOrAreTooLong) {
    for (const json &row : rowsOfVectors()) {
        SCOPED_TRACE(row.at("name"));
        const json &written = row.at("written");
        const bool fits = textOf(written.at("queryParam")).size() <= longestQueryParam &&
                          textOf(written.at("actionParam")).size() <= longestActionParam;
        EXPECT_EQ(written.at("fits"), fits);
    }
}

} // namespace
} // namespace kvex::test

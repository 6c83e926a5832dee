// The lines of the values of a JSON document, and what is refused.
#include "host/transfer/LinedJson.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

using Kind = LinedJson::Kind;

LinedJson read(std::string_view text) {
    Problems problems;
    const auto json = readLinedJson(text, problems);
    EXPECT_TRUE(problems.empty());
    return json.value_or(LinedJson{});
}

Problem problemOf(std::string_view text) {
    Problems problems;
    EXPECT_FALSE(readLinedJson(text, problems).has_value());
    EXPECT_EQ(problems.size(), 1);
    return problems.empty() ? Problem{} : problems.front();
}

TEST(LinedJson, HasValuesOfEveryKindWithTheLinesWhereTheyBegin) {
    const LinedJson json =
        read("[\n1\n,2,\n-3\n, \"a\",\ntrue, null\n, 1.5\n,{\n}\n,18446744073709551615\n]");
    ASSERT_EQ(json.kind, Kind::array);
    EXPECT_EQ(json.line, 1);
    const std::vector<std::pair<Kind, std::size_t>> expected{
        {Kind::integer, 2}, {Kind::integer, 3}, {Kind::integer, 4},
        {Kind::text, 5},    {Kind::boolean, 6}, {Kind::null, 6},
        {Kind::other, 7},   {Kind::object, 8},  {Kind::other, 10},
    };
    ASSERT_EQ(json.values.size(), expected.size());
    for (std::size_t at = 0; at < expected.size(); ++at) {
        EXPECT_EQ(json.values[at].kind, expected[at].first) << at;
        EXPECT_EQ(json.values[at].line, expected[at].second) << at;
    }
    EXPECT_EQ(json.values[2].number, -3);
    EXPECT_EQ(json.values[3].text, "a");
    EXPECT_TRUE(json.values[4].flag);
}

TEST(LinedJson, GivesAMemberTheLineOfItsName) {
    const LinedJson json = read("{\"a\": 1,\n\"b\":\n\n{\"c\":\n2\n}\n}");
    ASSERT_NE(json.member("b"), nullptr);
    EXPECT_EQ(json.member("b")->line, 2);
    EXPECT_EQ(json.member("b")->member("c")->line, 4);
    EXPECT_EQ(json.member("c"), nullptr);
}

TEST(LinedJson, MayBeOneValueAlone) {
    EXPECT_EQ(read("\n7").line, 2);
    EXPECT_EQ(read("7\n").line, 1);
    EXPECT_EQ(read("\xEF\xBB\xBF\"a\"").text, "a");
}

TEST(LinedJson, RefusesWhatIsNoJsonAtItsLine) {
    const Problem problem = problemOf("{\n\"a\": 1\n\"b\": 2}");
    EXPECT_EQ(problem.line, 3);
    EXPECT_EQ(problem.sentences,
              "The file is no JSON in UTF-8 from here on (syntax error while parsing object - "
              "unexpected string literal; expected '}').");
    EXPECT_EQ(problemOf("").line, 1);
    EXPECT_EQ(problemOf("[1]\n[2]").line, 2);
    EXPECT_EQ(problemOf("[\n1e999]").line, 2);
    EXPECT_EQ(problemOf("[\n\"\\ud800\"]").line, 2);
}

TEST(LinedJson, RefusesBytesThatAreNotUtf8) {
    EXPECT_NE(problemOf("[\n\"\xFF\"]").sentences.find("\xEF\xBF\xBD"), std::string::npos);
}

TEST(LinedJson, RefusesANameThatStandsTwice) {
    const Problem problem = problemOf("{\"a\": 1,\n\"a\": 2}");
    EXPECT_EQ(problem.line, 2);
    EXPECT_EQ(problem.sentences, "The name \"a\" stands twice in one object.");
}

TEST(LinedJson, RefusesValuesThatAreNestedTooDeep) {
    EXPECT_EQ(read(std::string(16, '[') + std::string(16, ']')).kind, Kind::array);
    EXPECT_EQ(problemOf("\n" + std::string(1000000, '[')).line, 2);
}

} // namespace
} // namespace kvex::host

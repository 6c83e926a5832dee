// Lines of a file of messages.
#include "host/matching/MessageLines.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

constexpr auto now = u"20240315 12:00:00";

std::string reason(std::string_view line) {
    try {
        static_cast<void>(messageFrom(line, now));
    } catch (const BadMessage &error) {
        return error.what();
    }
    return {};
}

TEST(MessageLine, HasAllMembers) {
    const Message message = messageFrom(
        R"({"service": true, "at": "2024-03-01 09:00", "text": "a\n\u00e4🌙", "account": -7, "from": "+1"})",
        now);
    EXPECT_EQ(message.sender, u"+1");
    EXPECT_EQ(message.account, -7);
    EXPECT_EQ(message.text, u"a\nä🌙");
    EXPECT_EQ(message.moment, u"20240301 09:00:00");
    EXPECT_TRUE(message.isService);
}

TEST(MessageLine, MayLeaveOutTheMomentAndTheService) {
    const Message message = messageFrom("{\"from\":\"\",\"account\":1,\"text\":\"\"}\r", now);
    EXPECT_EQ(message.moment, now);
    EXPECT_FALSE(message.isService);
}

struct Bad {
    const char *name;
    const char *line;
    const char *reason;
};

class BadLine : public testing::TestWithParam<Bad> {};

TEST_P(BadLine, SaysWhy) {
    EXPECT_EQ(reason(GetParam().line), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(
    , BadLine,
    testing::Values(
        Bad{"NoJson", "hello", "no JSON object of one line: it cannot be read at byte 1"},
        Bad{"Unclosed", R"({"from": "1")",
            "no JSON object of one line: it cannot be read at byte 13"},
        Bad{"TextBehind", R"({"from": "1", "account": 1, "text": ""} x)",
            "no JSON object of one line: it cannot be read at byte 41"},
        Bad{"NoUtf8", "{\"from\": \"\xff\"}",
            "no JSON object of one line: it cannot be read at byte 11"},
        Bad{"HalfAPair", R"({"from": "\ud800"})",
            "no JSON object of one line: it cannot be read at byte 17"},
        Bad{"Text", "\"a\"", "a message is a JSON object"},
        Bad{"List", "[]", "a message is a JSON object"},
        Bad{"Null", "null", "a message is a JSON object"},
        Bad{"NoSender", R"({"account": 1, "text": ""})", "\"from\" is missing"},
        Bad{"NoAccount", R"({"from": "1", "text": ""})", "\"account\" is missing"},
        Bad{"NoText", R"({"from": "1", "account": 1})", "\"text\" is missing"},
        Bad{"NumberAsSender", R"({"from": 1})", "\"from\" must be a text in quotation marks"},
        Bad{"TextAsAccount", R"({"account": "1"})",
            "\"account\" must be the id of an account, a number"},
        Bad{"FractionAsAccount", R"({"account": 1.0})",
            "\"account\" must be the id of an account, a number"},
        Bad{"TooGreatAnAccount", R"({"account": 2147483648})",
            "\"account\" must be the id of an account, a number"},
        Bad{"FarTooGreatAnAccount", R"({"account": 18446744073709551615})",
            "\"account\" must be the id of an account, a number"},
        Bad{"NullAsText", R"({"text": null})", "\"text\" must be a text in quotation marks"},
        Bad{"ObjectAsText", R"({"text": {}})", "\"text\" must be a text in quotation marks"},
        Bad{"NumberAsService", R"({"service": 1})", "\"service\" must be true or false"},
        Bad{"NoMoment", R"({"at": "noon"})",
            "\"at\" is no moment. Write it as \"2024-03-01 09:00\", \"2024-03-01T09:00:00\" or, "
            "with a time zone, \"2024-03-01T09:00:00Z\" and \"...+05:30\""},
        Bad{"Twice", R"({"text": "a", "text": "b"})", "\"text\" stands there twice"},
        Bad{"Unknown", R"({"Text": "a"})",
            "a message has no member \"Text\". It has from, account and text, and may have at and "
            "service"}),
    [](const auto &row) { return row.param.name; });

} // namespace
} // namespace kvex::host

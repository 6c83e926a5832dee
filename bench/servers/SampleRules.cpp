#include "bench/servers/SampleRules.h"

namespace kvex::bench {
namespace {

std::string numbers(std::int64_t first, int count) {
    std::string list;
    for (int i = 0; i < count; ++i) {
        list.append(i > 0 ? ";" : "").append(std::to_string(9800000000 + (first * 7919 + i) % 100000000));
    }
    return list;
}

} // namespace

SampleRule sampleRule(std::int64_t number) {
    const int few = static_cast<int>(number % 5) + 1;
    const int many = static_cast<int>(number * 31 % 200) + 1;
    const int count = number % 4 == 0 ? many : few;
    return {"Rule " + std::to_string(number) + " for customers \u0939\u093f",
            "<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>" + numbers(number, count) +
                "</PEOPLE><WORD><CON><ANY>STOP;HALT</WORD>",
            "<REPLY>We have received your message;2</REPLY><ALERT>New message;2;" +
                numbers(number + 1, few) +
                "</ALERT><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>"};
}

} // namespace kvex::bench

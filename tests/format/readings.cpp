// Reads rules as the editor does. Each line of the input is an object with "queryParam" and
// "actionParam". Each line of the output has the rule, the error's number, and what writing gives.
#include "platform/Error.h"
#include "rules/ParameterStrings.h"
#include "tests/format/RuleJson.h"

#include <exception>
#include <iostream>

namespace kvex::test {
namespace {

nlohmann::json answerTo(const nlohmann::json &columns) {
    RuleState rule;
    nlohmann::json answer;
    try {
        readQueryParam(textOf(columns.at("queryParam")), rule);
        readActionParam(textOf(columns.at("actionParam")), rule);
        answer["error"] = nullptr;
    } catch (const Error &error) {
        answer["error"] = error.number();
    }
    answer["rule"] = jsonOf(rule);
    answer["written"]["queryParam"] = jsonOf(buildQueryParam(rule));
    answer["written"]["actionParam"] = jsonOf(buildActionParam(rule));
    return answer;
}

} // namespace
} // namespace kvex::test

int main() {
    try {
        for (std::string line; std::getline(std::cin, line);) {
            std::cout << kvex::test::answerTo(nlohmann::json::parse(line)) << '\n';
        }
    } catch (const std::exception &error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}

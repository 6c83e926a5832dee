// Rule sets such as operators gather over the years. They are the same on every run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace kvex::bench {

/// A row of SMS_RULES without its id.
struct RuleRow {
    std::u16string name;
    std::u16string queryParam;
    std::u16string actionParam;
    std::int32_t priority;
    std::int16_t active;
};

/// How many users, accounts, services and commands the rules refer to. Their ids count from 1.
inline constexpr int userCount = 50;
inline constexpr int accountCount = 20;
inline constexpr int serviceCount = 20;
inline constexpr int commandCount = 100;

/// Each call of next makes a rule, with every mix of conditions and actions over time. Lists have 1
/// to 200 numbers; short ones are more frequent. All names differ. Priorities are 1, 2, 3 and so
/// on.
class RuleSet {
public:
    [[nodiscard]] RuleRow next();

private:
    /// A random number from 0 to `count` - 1.
    [[nodiscard]] std::size_t below(std::size_t count) { return random_() % count; }
    [[nodiscard]] bool happens(std::size_t percent) { return below(100) < percent; }
    [[nodiscard]] std::u16string number();
    [[nodiscard]] std::u16string numbers();
    [[nodiscard]] std::u16string ids(int count, std::size_t longest);
    [[nodiscard]] std::u16string words();
    [[nodiscard]] std::u16string name();

    std::mt19937 random_{20240301};
    std::int32_t given_ = 0;
};

[[nodiscard]] std::vector<RuleRow> ruleRows(std::size_t count);

} // namespace kvex::bench

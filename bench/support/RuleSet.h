// Rule sets as operators gather them over years: the same ones on every run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace kvex::bench {

/// A row of SMS_RULES but for its id.
struct RuleRow {
    std::u16string name;
    std::u16string queryParam;
    std::u16string actionParam;
    std::int32_t priority;
    std::int16_t active;
};

/// What rules name by their ids, which count from 1.
inline constexpr int userCount = 50;
inline constexpr int accountCount = 20;
inline constexpr int serviceCount = 20;
inline constexpr int commandCount = 100;

/// Gives rule after rule: every mix of conditions and actions, lists of 1 to 200 numbers of which
/// short ones are the more frequent, names all different. Priorities are 1, 2, 3 and so on.
class RuleSet {
public:
    [[nodiscard]] RuleRow next();

private:
    /// From 0 to `count` - 1.
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

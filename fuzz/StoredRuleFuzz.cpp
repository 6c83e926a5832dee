// A rule of any two strings, loaded and saved unchanged, keeps its meaning.
#include "fuzz/InputRule.h"
#include "fuzz/Property.h"

namespace kvex::fuzz {
namespace {

std::size_t lengthOf(const StoredRule &row) {
    return row.queryParam.size() + row.actionParam.size();
}

/// Loads and saves until nothing changes. Only flags that words begin with, and each ";" at the end
/// of a list, may still change the strings; no save makes them longer.
void requireRest(StoredRule row) {
    constexpr std::size_t flags = 3;
    for (std::size_t left = lengthOf(row) + flags; left > 0; --left) {
        const StoredRule next = stored(loaded(row));
        if (next == row) {
            return;
        }
        require(lengthOf(next) <= lengthOf(row), "a repeated save adds nothing",
                next.queryParam + next.actionParam);
        row = next;
    }
    require(false, "repeated saves come to rest", row.queryParam + row.actionParam);
}

void check(Input input) {
    const RuleState rule = loaded(storedRow(input));
    const StoredRule saved = stored(rule);
    const RuleState again = loaded(saved);
    if (!hasTagThatCounts(rule)) {
        requireSameRule(again, whatIsReadBack(rule),
                        "a rule that was loaded and saved is read back");
        requireRest(stored(again));
    }
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}

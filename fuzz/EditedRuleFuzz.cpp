// What the editor writes, it reads back as docs/behaviour.md says.
#include "fuzz/InputRule.h"
#include "fuzz/Property.h"
#include "fuzz/ReadBack.h"
#include "platform/Text.h"
#include "rules/ParameterStrings.h"

namespace kvex::fuzz {
namespace {

void check(Input input) {
    const RuleState rule = editedRule(input);
    const StoredRule row = stored(rule);
    // The editor stores the strings without blanks around them, and refuses longer ones.
    requireEqual(trimmed(row.queryParam), row.queryParam, "no blank stands around QueryParam");
    requireEqual(trimmed(row.actionParam), row.actionParam, "no blank stands around ActionParam");
    if (row.queryParam.size() > longestQueryParam || row.actionParam.size() > longestActionParam) {
        return;
    }
    const RuleState read = loaded(row);
    if (!hasTagThatCounts(rule)) {
        requireSameRule(read, whatIsReadBack(rule), "a stored rule is read back");
    }
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}

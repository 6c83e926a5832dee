// Rules as users have them: most with a few numbers, some with up to 200.
#pragma once

#include <cstdint>
#include <string>

namespace kvex::bench {

struct SampleRule {
    std::string name;
    std::string queryParam;
    std::string actionParam;
};

/// The same for each number every time.
[[nodiscard]] SampleRule sampleRule(std::int64_t number);

} // namespace kvex::bench

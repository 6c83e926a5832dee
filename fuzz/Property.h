// How a fuzz target says that a property does not hold.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace kvex::fuzz {

/// Leaves the target. The fuzzer takes it for a crash and keeps the input; the replay names the
/// input's file.
class BrokenProperty : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Each fails with BrokenProperty when its condition does not hold. The text names the property and
/// shows the texts, with escapes for what a terminal cannot show.
void require(bool holds, std::string_view property, std::u16string_view shown = {});
void requireEqual(std::u16string_view is, std::u16string_view expected, std::string_view property);

} // namespace kvex::fuzz

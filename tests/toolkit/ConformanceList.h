// Lists for the conformance suite's list tests.
#pragma once

#include "tests/toolkit/Conformance.h"

namespace kvex::test {

/// Named "lvw".
[[nodiscard]] ControlDesign list(bool checkBoxes = false, bool multiSelect = false);
/// The window's list, with a shown and a hidden column and these rows.
ListView &filled(Window &window, const std::vector<std::u16string> &texts);
[[nodiscard]] std::vector<std::u16string> texts(const ListView &view);

} // namespace kvex::test

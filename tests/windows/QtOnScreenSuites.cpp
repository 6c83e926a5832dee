#include "tests/windows/ActionDialogsOnScreen.h"
#include "tests/windows/ConditionsOnScreen.h"
#include "tests/windows/DatesOnScreen.h"
#include "tests/windows/QtOnScreen.h"

namespace kvex::test {

INSTANTIATE_TEST_SUITE_P(Qt, WindowsOnScreen, testing::Values(&QtStage::make));
INSTANTIATE_TEST_SUITE_P(Qt, ConditionsOnScreen, testing::Values(&QtStage::make));
INSTANTIATE_TEST_SUITE_P(Qt, ActionDialogsOnScreen, testing::Values(&QtStage::make));
INSTANTIATE_TEST_SUITE_P(Qt, DatesOnScreen, testing::Values(&QtStage::make));

} // namespace kvex::test

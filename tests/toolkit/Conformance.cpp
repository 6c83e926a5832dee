#include "tests/toolkit/Conformance.h"

namespace kvex::test {

void ToolkitConformance::SetUp() {
    fixture_ = GetParam()();
    const std::string own = testing::UnitTest::GetInstance()->current_test_info()->name();
    for (const Deviation &deviation : fixture_->deviations()) {
        if (own.starts_with(deviation.test + "/")) {
            GTEST_SKIP() << "declared deviation: " << deviation.reason;
        }
    }
}

void ToolkitConformance::TearDown() {
    EXPECT_EQ(fixture_->complaints(), "");
    fixture_.reset();
}

std::unique_ptr<Window> ToolkitConformance::window(std::vector<ControlDesign> controls,
                                                   std::u16string name) {
    Layout layout = below(controls);
    return toolkit().createWindow(
        {std::move(name), u"Test", std::move(controls), std::move(layout)});
}

} // namespace kvex::test

// The main function of test programs that show windows. It starts a display of the size that
// KVEX_TEST_SCREEN gives.
#include "tests/support/VirtualDisplay.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class DisplayForTests final : public testing::Environment {
public:
    void SetUp() override {
        display_ = std::make_unique<kvex::test::VirtualDisplay>(KVEX_TEST_SCREEN);
    }
    // The toolkit stays connected until the program ends, so the server must run until then.

private:
    std::unique_ptr<kvex::test::VirtualDisplay> display_;
};

} // namespace

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::AddGlobalTestEnvironment(new DisplayForTests);
    return RUN_ALL_TESTS();
}

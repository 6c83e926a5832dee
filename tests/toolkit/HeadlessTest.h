// A headless toolkit and a small window for the tests of the toolkit.
#pragma once

#include "adapters/headless/HeadlessToolkit.h"
#include "adapters/headless/User.h"
#include "tests/toolkit/Designs.h"

#include <gtest/gtest.h>

namespace kvex::headless {

class HeadlessTest : public testing::Test {
protected:
    [[nodiscard]] std::unique_ptr<Window> window(std::vector<ControlDesign> controls,
                                                 std::u16string name = u"frmTest") {
        Layout layout = test::below(controls);
        return toolkit_.createWindow(
            {std::move(name), u"Test", std::move(controls), std::move(layout)});
    }
    void show(Window &window, HeadlessToolkit::Script script) {
        toolkit_.whenShown(u"frmTest", std::move(script));
        window.showModal();
    }

    HeadlessToolkit toolkit_;
};

} // namespace kvex::headless

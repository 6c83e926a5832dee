// The conformance suite of toolkits: written against the contracts of platform/controls alone. A
// toolkit's test program links it and instantiates it with its fixture:
// INSTANTIATE_TEST_SUITE_P(Qt, ToolkitConformance, testing::Values(&makeQtFixture));
#pragma once

#include "tests/toolkit/Designs.h"
#include "tests/toolkit/ToolkitFixture.h"

#include "platform/controls/Buttons.h"
#include "platform/controls/DTPicker.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "tests/support/RaisedError.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace kvex::test {

class ToolkitConformance : public testing::TestWithParam<MakeToolkitFixture> {
protected:
    void SetUp() override;
    void TearDown() override;

    [[nodiscard]] Toolkit &toolkit() { return fixture_->toolkit(); }
    [[nodiscard]] ToolkitFixture &fixture() { return *fixture_; }

    /// A window of these controls, one below the other.
    [[nodiscard]] std::unique_ptr<Window> window(std::vector<ControlDesign> controls,
                                                 std::u16string name = u"frmTest");
    void show(Window &window, ToolkitFixture::Script script) {
        fixture_->show(window, std::move(script));
    }

private:
    std::unique_ptr<ToolkitFixture> fixture_;
};

} // namespace kvex::test

// How many columns and rows each control asks for.
#include "adapters/terminal/ControlView.h"
#include "tests/toolkit/Designs.h"
#include "tests/toolkit/lightweight/TestWindow.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

namespace kvex::test {
namespace {

using terminal::Economy;
using terminal::Extent;
using Sizes = std::array<int, 2>;

/// The view of one control.
class ViewSizes {
public:
    explicit ViewSizes(ControlDesign design)
        : window_({std::move(design)}),
          view_(terminal::viewOf(*window_.elements().front(), {}, {})) {}

    /// The least and the natural size.
    [[nodiscard]] Sizes columns() const { return of(view_->columns()); }
    [[nodiscard]] Sizes rows(int columns, Economy economy = Economy::none) const {
        return of(view_->rows(columns, economy));
    }
    [[nodiscard]] bool grows() const { return view_->growsAcross(); }

private:
    static Sizes of(Extent extent) { return {extent.least, extent.natural}; }

    lightweight::TestWindow window_;
    std::unique_ptr<terminal::ControlView> view_;
};

ControlDesign sized(ControlKind kind, int columns, int lines = 0) {
    ControlDesign design = control(kind, u"sized");
    design.columns = columns;
    design.lines = lines;
    return design;
}

TEST(ViewSizes, OfABoxOfOneLineAreThoseOfItsTextAndItsBrackets) {
    constexpr auto box = ControlKind::textBox;
    EXPECT_EQ(ViewSizes(sized(box, 0)).columns(), (Sizes{12, 22}));
    EXPECT_EQ(ViewSizes(sized(box, 30)).columns(), (Sizes{12, 32}));
    EXPECT_EQ(ViewSizes(sized(box, 1)).columns(), (Sizes{3, 3}));
    EXPECT_EQ(ViewSizes(sized(box, 0)).rows(22), (Sizes{1, 1}));
    EXPECT_TRUE(ViewSizes(sized(box, 0)).grows());
}

TEST(ViewSizes, OfABoxOfSeveralLinesAreThoseOfItsTextAndItsFrame) {
    constexpr auto box = ControlKind::richTextBox;
    EXPECT_EQ(ViewSizes(sized(box, 0)).columns(), (Sizes{12, 22}));
    EXPECT_EQ(ViewSizes(sized(box, 30)).columns(), (Sizes{12, 32}));
    EXPECT_EQ(ViewSizes(sized(box, 1)).columns(), (Sizes{3, 3}));
    EXPECT_EQ(ViewSizes(sized(box, 0, 0)).rows(22), (Sizes{4, 7}));
    EXPECT_EQ(ViewSizes(sized(box, 0, 1)).rows(22), (Sizes{3, 3}));
    EXPECT_EQ(ViewSizes(sized(box, 0, 9)).rows(22, Economy::noGaps), (Sizes{4, 11}));
    EXPECT_EQ(ViewSizes(sized(box, 0, 9)).rows(22, Economy::noListFrames), (Sizes{2, 9}));
    EXPECT_TRUE(ViewSizes(sized(box, 0)).grows());
}

TEST(ViewSizes, OfAPickerHaveRoomForItsTickAndItsLongestText) {
    ControlDesign date = control(ControlKind::datePicker, u"dtp");
    date.format = u"dd/MM/yyyy";
    EXPECT_EQ(ViewSizes(date).columns(), (Sizes{14, 14}));
    EXPECT_EQ(ViewSizes(date).rows(14), (Sizes{1, 1}));
}

TEST(ViewSizes, OfAButtonAreThoseOfItsCaptionAndItsBrackets) {
    const ViewSizes button(control(ControlKind::commandButton, u"cmd", u"&New"));
    EXPECT_EQ(button.columns(), (Sizes{7, 7}));
    EXPECT_EQ(button.rows(7), (Sizes{1, 1}));
}

TEST(ViewSizes, OfABoxToTickAreThoseOfItsWrappedCaptionAndItsMark) {
    const ViewSizes box(control(ControlKind::checkBox, u"chk", u"&Whole words"));
    EXPECT_EQ(box.columns(), (Sizes{9, 15}));
    EXPECT_EQ(box.rows(15), (Sizes{1, 1}));
    EXPECT_EQ(box.rows(14), (Sizes{2, 2}));
}

} // namespace
} // namespace kvex::test

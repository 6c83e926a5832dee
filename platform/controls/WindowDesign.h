// A window's design: its controls in tab order, captions, initial states, and a layout of boxes
// with stretch. Declared once, beside the window's logic; every toolkit builds it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kvex {

enum class ControlKind {
    label,
    commandButton,
    checkBox,
    optionButton,
    textBox,
    richTextBox,
    listView,
    datePicker,
    timePicker,
    /// A box around what the layout puts into it; empty, a separating line.
    frame,
    /// Not shown: the pictures that list views name.
    imageList,
};

/// inOrder: the rows stand in an order of their own, counted from the top.
enum class Picture { inOrder, account, person };

struct ControlDesign {
    ControlKind kind;
    /// Unique in its window.
    std::u16string name;
    /// textBox: the text at first.
    std::u16string caption = {};
    bool enabled = true;
    bool visible = true;
    /// What a disabled control waits for.
    std::u16string disabledHint = {};
    /// For those who cannot see it, where neither a caption nor a buddy label names it.
    std::u16string accessibleName = {};

    /// label: the control that its text names and its access key goes to.
    std::u16string buddy = {};
    /// label: explains, rather than names; drawn in a quieter colour, wrapped to the width.
    bool hint = false;
    /// commandButton: pressed by Enter; by Esc.
    bool isDefault = false;
    bool isCancel = false;
    /// textBox: UTF-16 units that the user may reach, by whatever means; 0 for no limit.
    int maxLength = 0;
    /// textBox and richTextBox: can be read, selected and copied, not changed.
    bool readOnly = false;
    /// optionButton: the members of one group share this name.
    std::u16string group = {};
    /// optionButton and checkBox: selected or ticked at first.
    bool selected = false;
    /// listView.
    bool checkBoxes = false;
    bool multiSelect = false;
    bool columnHeaders = true;
    /// listView: what belongs there, said while it has no rows.
    std::u16string emptyText = {};
    /// listView: where no row is selected, Tab into the list selects the first, as a key does.
    bool startsAtFirstRow = false;
    /// listView: what a greyed row says of itself.
    std::u16string greyedRowHint = {};
    /// listView: the image list whose pictures its columns and rows use; the picture (from 1)
    /// that every row carries, 0 for none.
    std::u16string imageList = {};
    int rowPicture = 0;
    /// imageList.
    std::vector<Picture> pictures = {};
    /// datePicker, timePicker: "dd/MM/yyyy" or "yyy", alike; "HH:mm:ss"; the time of day at first.
    std::u16string format = {};
    int hour = 0, minute = 0, second = 0;

    /// The least room for content, in average characters and lines; 0 leaves it to the toolkit.
    int columns = 0;
    int lines = 0;
};

/// A piece of a layout: a control by its name, or a box of pieces. A layout names every visible
/// control once. A control that is not visible takes no room; without a place it is never shown.
struct Layout {
    enum class Kind { control, row, column, spring };
    Kind kind = Kind::spring;
    std::u16string control = {};
    /// The pieces of a box, or of what the control (a frame) surrounds, top to bottom or leading
    /// to trailing edge.
    std::vector<Layout> pieces = {};
    /// The share of the room left over; 0 takes only what is needed.
    int stretch = 0;
    /// A box whose pieces can be scrolled to where the window has not the room for all; at most
    /// one in a layout. Without one the whole layout scrolls.
    bool scrolls = false;
};

[[nodiscard]] inline Layout place(std::u16string control, int stretch = 0) {
    return {Layout::Kind::control, std::move(control), {}, stretch};
}
[[nodiscard]] inline Layout placeFrame(std::u16string control, std::vector<Layout> pieces,
                                       int stretch = 0) {
    return {Layout::Kind::control, std::move(control), std::move(pieces), stretch};
}
[[nodiscard]] inline Layout row(std::vector<Layout> pieces, int stretch = 0) {
    return {Layout::Kind::row, {}, std::move(pieces), stretch};
}
[[nodiscard]] inline Layout column(std::vector<Layout> pieces, int stretch = 0) {
    return {Layout::Kind::column, {}, std::move(pieces), stretch};
}
/// A column of what may scroll, above what stays in view.
[[nodiscard]] inline Layout scrolling(std::vector<Layout> pieces) {
    return {Layout::Kind::column, {}, std::move(pieces), 1, true};
}
/// Takes the room that is left.
[[nodiscard]] inline Layout spring() {
    return {Layout::Kind::spring, {}, {}, 1};
}

struct WindowDesign {
    std::u16string name;
    std::u16string caption;
    /// In tab order.
    std::vector<ControlDesign> controls;
    Layout layout;
    /// The size at first, in average characters and lines, as far as the screen has room.
    int columns = 0;
    int lines = 0;
};

} // namespace kvex

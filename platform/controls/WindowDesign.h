// A window's design: controls in tab order, captions, initial states, and a layout of nested boxes.
// It stands beside the window's logic. Every toolkit builds the window from it.
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
    /// A box around the controls that the layout puts into it. Without controls, it is a separating
    /// line.
    frame,
    /// The pictures of list views. It is never shown.
    imageList,
};

/// inOrder is the picture of a column whose rows have an order of their own.
enum class Picture { inOrder, account, person };

struct ControlDesign {
    ControlKind kind;
    /// Unique in its window.
    std::u16string name;
    /// textBox: the initial text.
    std::u16string caption = {};
    bool enabled = true;
    bool visible = true;
    /// Says what a disabled control waits for.
    std::u16string disabledHint = {};
    /// For assistive technology, if neither a caption nor a label names the control.
    std::u16string accessibleName = {};

    /// label: the control that it names and that its access key leads to.
    std::u16string buddy = {};
    /// label: an explanation, in a quieter colour and wrapped to the width.
    bool hint = false;
    /// label: the control that it explains while it is visible. Assistive technology reads the
    /// caption out as that control's description, and again when it changes.
    std::u16string describes = {};
    /// commandButton: Enter presses the default button, Esc the cancel button.
    bool isDefault = false;
    bool isCancel = false;
    /// textBox: the longest text that the user can enter, in UTF-16 units; 0 for no limit.
    int maxLength = 0;
    /// textBox and richTextBox: the user can select and copy the text but not change it.
    bool readOnly = false;
    /// optionButton: the members of one group share this name.
    std::u16string group = {};
    /// optionButton and checkBox: initially selected or ticked.
    bool selected = false;
    /// listView.
    bool checkBoxes = false;
    bool multiSelect = false;
    bool columnHeaders = true;
    /// listView: the text of an empty list. It says what belongs there.
    std::u16string emptyText = {};
    /// listView: Tab into the list selects the first row if none is selected.
    bool startsAtFirstRow = false;
    /// listView: the description of a greyed row.
    std::u16string greyedRowHint = {};
    /// listView: the image list of its columns and rows. Every row shows the picture `rowPicture`,
    /// counted from 1; 0 for none.
    std::u16string imageList = {};
    int rowPicture = 0;
    /// imageList.
    std::vector<Picture> pictures = {};
    /// datePicker: "dd/MM/yyyy", where "yyy" means the same as "yyyy". timePicker: "HH:mm:ss". Both
    /// have an initial time.
    std::u16string format = {};
    int hour = 0, minute = 0, second = 0;

    /// The least room for content, in average characters and lines; 0 for the toolkit's default.
    int columns = 0;
    int lines = 0;
};

/// A piece of a layout: a control by its name, or a box of pieces. A layout names every visible
/// control once. A hidden control takes no room. Without a place it can never be shown.
struct Layout {
    enum class Kind { control, row, column, spring };
    Kind kind = Kind::spring;
    std::u16string control = {};
    /// The pieces in a box or in a frame, from top to bottom or from the leading to the trailing
    /// edge.
    std::vector<Layout> pieces = {};
    /// The piece's share of the spare room; 0 for only the room that it needs.
    int stretch = 0;
    /// The box scrolls if the window is too small. At most one box of a layout does. Without one
    /// the whole layout scrolls.
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
/// A column that may scroll. The pieces below it stay visible.
[[nodiscard]] inline Layout scrolling(std::vector<Layout> pieces) {
    return {Layout::Kind::column, {}, std::move(pieces), 1, true};
}
/// Takes the spare room.
[[nodiscard]] inline Layout spring() {
    return {Layout::Kind::spring, {}, {}, 1};
}

struct WindowDesign {
    std::u16string name;
    std::u16string caption;
    /// In tab order.
    std::vector<ControlDesign> controls;
    Layout layout;
    /// The initial size, in average characters and lines. The screen limits it.
    int columns = 0;
    int lines = 0;
};

} // namespace kvex

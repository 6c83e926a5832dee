#include "tests/support/DesignTable.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>

namespace kvex::test {
namespace {

const char *kindOf(const ControlDesign &control) {
    switch (control.kind) {
    case ControlKind::label:
        return control.hint ? "hint" : "label";
    case ControlKind::commandButton:
        return "button";
    case ControlKind::checkBox:
        return "check";
    case ControlKind::optionButton:
        return "option";
    case ControlKind::textBox:
        return "text";
    case ControlKind::richTextBox:
        return "richText";
    case ControlKind::listView:
        return "list";
    case ControlKind::datePicker:
        return "date";
    case ControlKind::timePicker:
        return "time";
    case ControlKind::frame:
        return "frame";
    case ControlKind::imageList:
        return "images";
    }
    return "?";
}

const char *pictureName(Picture picture) {
    switch (picture) {
    case Picture::inOrder:
        return "inOrder";
    case Picture::account:
        return "account";
    case Picture::person:
        return "person";
    }
    return "?";
}

} // namespace

std::string rowOf(const ControlDesign &control) {
    std::string row = std::string(kindOf(control)) + ' ' + toUtf8(control.name);
    const auto flag = [&](bool set, const std::string &name) { row += set ? ' ' + name : ""; };
    const auto text = [&](const char *name, const std::u16string &value) {
        flag(!value.empty(), name + ('"' + toUtf8(value) + '"'));
    };
    const auto number = [&](const char *name, int value) {
        flag(value != 0, name + std::to_string(value));
    };
    text("", control.caption);
    flag(!control.visible, "hidden");
    flag(!control.enabled, "disabled");
    text("waits=", control.disabledHint);
    text("called=", control.accessibleName);
    text("for=", control.buddy);
    text("describes=", control.describes);
    flag(control.isDefault, "default");
    flag(control.isCancel, "cancel");
    number("max=", control.maxLength);
    flag(control.readOnly, "readOnly");
    text("group=", control.group);
    flag(control.selected, "selected");
    flag(control.checkBoxes, "checkBoxes");
    flag(control.multiSelect, "many");
    flag(!control.columnHeaders, "noHeaders");
    text("greyed=", control.greyedRowHint);
    text("empty=", control.emptyText);
    flag(control.startsAtFirstRow, "startsAtFirst");
    text("images=", control.imageList);
    number("picture=", control.rowPicture);
    for (const Picture picture : control.pictures) {
        flag(true, pictureName(picture));
    }
    text("format=", control.format);
    number("hour=", control.hour);
    number("minute=", control.minute);
    number("second=", control.second);
    return row;
}

void expectDesign(const WindowDesign &design, const std::string &name, const std::string &title,
                  const std::vector<std::string> &rows) {
    EXPECT_EQ(toUtf8(design.name), name);
    EXPECT_EQ(toUtf8(design.caption), title);
    ASSERT_EQ(design.controls.size(), rows.size());
    for (std::size_t position = 0; position < rows.size(); ++position) {
        EXPECT_EQ(rowOf(design.controls[position]), rows[position]);
    }
}

} // namespace kvex::test

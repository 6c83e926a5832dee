// Whatever a user presses, types and pastes, and whatever code changes meanwhile: caret, selection,
// rows and dates stay within what there is.
#include "adapters/lightweight/LightDTPicker.h"
#include "adapters/lightweight/LightListView.h"
#include "adapters/lightweight/LightRichTextBox.h"
#include "adapters/lightweight/LightTextBox.h"
#include "fuzz/Input.h"
#include "fuzz/Property.h"
#include "platform/Text.h"
#include "platform/Unicode.h"
#include "tests/toolkit/lightweight/TestWindow.h"

#include <algorithm>
#include <array>

namespace kvex::fuzz {
namespace {

using namespace lightweight;

constexpr int limit = 12;
constexpr std::size_t keyCount = static_cast<std::size_t>(Key::suspend) + 1;
constexpr std::array<std::u16string_view, 10> names{
    u"txt", u"rt", u"rtRead", u"lvw", u"lvwMany", u"dtp", u"dtpTime", u"opg0", u"opg1", u"cmd"};

std::vector<ControlDesign> designs() {
    return {{.kind = ControlKind::textBox, .name = u"txt", .maxLength = limit},
            {.kind = ControlKind::richTextBox, .name = u"rt"},
            {.kind = ControlKind::richTextBox, .name = u"rtRead", .readOnly = true},
            {.kind = ControlKind::listView, .name = u"lvw", .checkBoxes = true},
            {.kind = ControlKind::listView, .name = u"lvwMany", .multiSelect = true},
            {.kind = ControlKind::datePicker, .name = u"dtp", .format = u"dd/MM/yyyy"},
            {.kind = ControlKind::timePicker, .name = u"dtpTime", .format = u"HH:mm:ss"},
            {.kind = ControlKind::optionButton, .name = u"opg0", .group = u"opg"},
            {.kind = ControlKind::optionButton, .name = u"opg1", .group = u"opg"},
            {.kind = ControlKind::commandButton, .name = u"cmd", .isDefault = true}};
}

/// What code does to a list while its user works.
void changeRows(LightListView &list, Input &input) {
    const int row =
        list.rowCount() == 0
            ? 0
            : 1 + static_cast<int>(input.below(static_cast<std::size_t>(list.rowCount())));
    switch (input.below(8)) {
    case 0:
        list.clearRows();
        break;
    case 1:
        list.setSorted(!list.sorted());
        break;
    case 2:
        list.setPage(static_cast<int>(input.below(9)));
        break;
    case 3:
        list.scrollBy(static_cast<int>(input.below(20)) - 10);
        break;
    case 4:
        row == 0 ? list.clickBesideRows() : list.removeRow(row);
        break;
    case 5:
        row == 0 ? list.clickBesideRows() : list.extendTo(row);
        break;
    case 6:
        row == 0 ? list.clickBesideRows() : list.toggleRow(row);
        break;
    default:
        list.addRow(input.text());
        break;
    }
}

/// As a terminal gives it: no control characters.
void type(TestWindow &window, std::u16string text) {
    std::erase_if(text, [](char16_t unit) { return unit < u' ' || unit == 0x7F; });
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = clusterEnd(text, at);
        window.type(text.substr(at, end - at));
        at = end;
    }
}

void act(TestWindow &window, Input &input) {
    switch (input.below(8)) {
    case 0:
        type(window, input.text());
        break;
    case 1:
        window.paste(input.text());
        break;
    case 2:
        window.element(input.one(names))->takeFocus();
        break;
    case 3:
        changeRows(window.the<LightListView>(input.flag() ? u"lvwMany" : u"lvw"), input);
        break;
    case 4:
        window.wait(std::chrono::milliseconds(10 * input.byte()));
        break;
    default:
        window.press(static_cast<Key>(input.below(keyCount)));
        break;
    }
}

void requireText(const TextInput &text) {
    const std::u16string &content = text.content();
    const auto [from, length] = text.selection();
    require(fromUtf8(toUtf8(content)) == content, "no half of a character is left", content);
    require(text.caret() <= content.size(), "the caret is in the text", content);
    require(!isInsideCharacter(content, text.caret()), "the caret is in no character", content);
    require(from + length <= content.size(), "the selection is in the text", content);
}

void requireRows(const LightListView &list) {
    int selected = 0;
    for (int row = 1; row <= list.rowCount(); ++row) {
        selected += list.selected(row) ? 1 : 0;
    }
    require(selected <= 1 || list.multiSelect(), "a list of one choice has one selected row");
    require((selected == 0) == (list.currentRow() == 0), "a selected row makes a row current");
    require(list.currentRow() <= list.rowCount(), "the current row exists");
    const int first = list.visibleRows().first();
    const int last = first + list.visibleRows().size() - 1;
    require(first == 1 || last <= list.rowCount(), "no room is wasted below the rows");
}

void requireValue(const LightDTPicker &picker) {
    const std::u16string text = picker.editor().text();
    const auto [from, length] = picker.editor().part();
    require(text.size() <= picker.editor().length(), "a picker's text has its length", text);
    require(text.empty() != picker.hasValue(), "a picker with a value shows it", text);
    require(text.empty() || from + length <= text.size(), "the part is in the text", text);
}

void check(Input input) {
    TestWindow window(designs());
    auto &box = window.the<LightRichTextBox>(u"rt");
    window.the<LightRichTextBox>(u"rtRead").setText(u"one\r\n\r\ntwo three");
    while (!input.atEnd()) {
        act(window, input);
        const auto &line = window.the<LightTextBox>(u"txt");
        require(line.content().size() <= limit, "a box keeps its limit", line.content());
        requireText(line);
        requireText(box);
        requireText(window.the<LightRichTextBox>(u"rtRead"));
        requireRows(window.the<LightListView>(u"lvw"));
        requireRows(window.the<LightListView>(u"lvwMany"));
        requireValue(window.the<LightDTPicker>(u"dtp"));
        requireValue(window.the<LightDTPicker>(u"dtpTime"));
    }
    std::u16string joined;
    for (const TextRun &run : box.runs()) {
        joined += run.text;
    }
    requireEqual(joined, box.content(), "the pieces of a text are the text");
    requireEqual(window.the<LightRichTextBox>(u"rtRead").content(), u"one\r\n\r\ntwo three",
                 "a text to read stays as it is");
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}

#include "ui/EntryList.h"

#include "component/session/Session.h"
#include "platform/Text.h"

namespace kvex {

std::u16string indented(std::u16string_view entry) {
    return std::u16string(4, u' ').append(entry);
}

std::u16string joinedRows(const ListView &list, int firstRow, int subItem) {
    std::u16string entries;
    for (int row = firstRow; row <= list.rowCount(); ++row) {
        const std::u16string text = subItem == 0 ? list.text(row) : list.subItem(row, subItem);
        entries.append(trimmed(text)).append(1, u';');
    }
    return std::u16string(withoutTrailingSeparator(entries));
}

EntryList::EntryList(ListView &list, Heading heading, std::vector<CommandButton *> waiting)
    : list_(list), headings_(heading == Heading::firstRow ? 1 : 0), waiting_(std::move(waiting)) {}

int EntryList::add(std::u16string_view entry) {
    return list_.addRow(indented(entry));
}

void EntryList::addJoined(std::u16string_view entries) {
    if (entries.empty()) {
        return;
    }
    for (const std::u16string_view entry : split(entries, u';')) {
        add(entry);
    }
    enableButtons(true);
}

void EntryList::finishTyping(TextBox &box) {
    box.setText({});
    box.setFocus();
    enableButtons(true);
}

void EntryList::enableButtons(bool enabled) {
    for (CommandButton *button : waiting_) {
        button->setEnabled(enabled);
    }
}

void EntryList::removeSelected() {
    session().blnChanged = true;
    if (list_.selectedRow() == 0 || empty()) {
        return;
    }
    if (list_.selectedRow() <= headings_) {
        list_.select(firstEntry());
    }
    list_.removeRow(list_.selectedRow());
    if (empty()) {
        enableButtons(false);
    }
}

void EntryList::clearIfConfirmed() {
    session().blnChanged = true;
    if (showMessage(u"Are you sure you want to clear the list?", message_box::yesNo) !=
        message_box::yes) {
        return;
    }
    for (int row = list_.rowCount(); row >= firstEntry(); --row) {
        list_.removeRow(row);
    }
    enableButtons(false);
}

} // namespace kvex

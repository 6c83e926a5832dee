#include "ui/EntryList.h"

#include "component/session/Session.h"
#include "platform/Text.h"
#include "ui/Form.h"

namespace kvex {

std::u16string indented(std::u16string_view entry) {
    return std::u16string(4, u' ').append(entry);
}

Entries entriesIn(const ListView &list, int firstRow, int subItem) {
    Entries entries;
    for (int row = firstRow; row <= list.rowCount(); ++row) {
        const std::u16string text = subItem == 0 ? list.text(row) : list.subItem(row, subItem);
        entries.emplace_back(trimmed(text));
    }
    return entries;
}

std::u16string joinedRows(const ListView &list, int firstRow, int subItem) {
    return kvex::joined(entriesIn(list, firstRow, subItem), u';');
}

EntryList::EntryList(ListView &list, Heading heading, std::vector<CommandButton *> waiting)
    : list_(list), headings_(heading == Heading::firstRow ? 1 : 0), waiting_(std::move(waiting)) {}

void EntryList::explainBy(Label &hint, TextBox &box, HintFor hintFor) {
    hint_.emplace(Hint{hint, box, hintFor});
}

void EntryList::updateHint() {
    if (!hint_) {
        return;
    }
    showHint(hint_->label, [this] {
        Entries entries = entriesIn(list_, firstEntry(), 0);
        const std::u16string typed = hint_->box.text();
        if (const auto entry = trimmed(typed); !entry.empty()) {
            entries.emplace_back(entry);
        }
        return hint_->sentence(ruleState(), entries);
    });
}

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
    finishAdding();
}

void EntryList::finishTyping(TextBox &box) {
    box.setText({});
    box.setFocus();
    finishAdding();
}

void EntryList::finishAdding() {
    enableButtons(true);
    updateHint();
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
    updateHint();
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
    updateHint();
}

} // namespace kvex

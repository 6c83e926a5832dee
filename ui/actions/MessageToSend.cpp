#include "ui/actions/MessageToSend.h"

#include "component/session/Session.h"
#include "platform/Text.h"
#include "platform/controls/DesignPieces.h"
#include "ui/Form.h"
#include "ui/ListColumns.h"

namespace kvex {
namespace {

const std::u16string keyPrefix = u"AC";

} // namespace

MessageToSend::MessageToSend(RichTextBox &text, TextBox &count, Label &hint, HintFor hintFor,
                             ListView &accounts, CommandButton &ok)
    : text_(text), count_(count), hint_(hint), hintFor_(hintFor), accounts_(accounts), ok_(ok) {}

void MessageToSend::listAccounts(AccountUse use, const std::u16string &storedAccount) {
    beginList(accounts_, u"Available Accounts", {u"AccountID"});
    forEachAccount(use, [&](const std::u16string &name, const std::u16string &id) {
        accounts_.setSubItem(accounts_.addRow(name, keyPrefix + id), 1, id);
    });
    if (accounts_.rowCount() > 0) {
        accounts_.select(1);
    }
    if (!trimmed(storedAccount).empty()) {
        accounts_.setChecked(accounts_.rowOfKey(keyPrefix + storedAccount), true);
    }
}

/// Counts UTF-16 units; a line break has two. The count is only shown, and nothing limits the text.
void MessageToSend::textChanged() {
    session().blnChanged = true;
    const std::u16string text = text_.text();
    const std::size_t length = text.size();
    count_.setText(toText(static_cast<std::int64_t>(length)));
    count_.refresh();
    ok_.setEnabled(length > 0);
    showHint(hint_, [&] { return hintFor_(ruleState(), text); });
}

void MessageToSend::accountTicked(int row) {
    session().blnChanged = true;
    if (!accounts_.checked(row)) {
        return;
    }
    for (int other = 1; other <= accounts_.rowCount(); ++other) {
        accounts_.setChecked(other, other == row);
    }
    accounts_.select(row);
}

bool MessageToSend::isBlank() const {
    return trimmed(text_.text()).empty();
}

bool MessageToSend::chooseAccount() {
    for (int row = 1; row <= accounts_.rowCount(); ++row) {
        if (accounts_.checked(row)) {
            chosenRow_ = row;
            return true;
        }
    }
    return false;
}

std::u16string MessageToSend::account() const {
    if (chosenRow_ == 0) {
        throw Error(error_number::objectNotSet);
    }
    return accounts_.key(chosenRow_).substr(keyPrefix.size());
}

namespace design {

ControlDesign messageText(std::u16string name) {
    return {.kind = ControlKind::richTextBox, .name = std::move(name), .columns = 48, .lines = 4};
}

ControlDesign characterCount() {
    return {.kind = ControlKind::textBox,
            .name = u"txtCharCount",
            .caption = u"0",
            .readOnly = true,
            .columns = 8};
}

ControlDesign messageHint(std::u16string message) {
    return hintOn(std::move(message), u"lblTextHint");
}

Layout countAndHint(std::u16string label) {
    constexpr int nearlyAll = 100;
    return row({place(std::move(label)), place(u"txtCharCount"), spring(),
                place(u"lblTextHint", nearlyAll)});
}

ControlDesign outAccounts() {
    return {.kind = ControlKind::listView,
            .name = u"lvwOutAccount",
            .checkBoxes = true,
            .emptyText = u"The server's accounts appear here.",
            .imageList = u"imgListIcons",
            .rowPicture = accountPicture,
            .columns = 48,
            .lines = 4};
}

ControlDesign listIcons() {
    return {.kind = ControlKind::imageList,
            .name = u"imgListIcons",
            .pictures = {Picture::account, Picture::person}};
}

} // namespace design
} // namespace kvex

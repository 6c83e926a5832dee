// What a reply and an alert have in common: a text, its length, and the one account through which
// it is sent.
#pragma once

#include "platform/controls/CommandButton.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "ui/Accounts.h"

#include <string>

namespace kvex {

class MessageToSend {
public:
    MessageToSend(RichTextBox &text, TextBox &count, ListView &accounts, CommandButton &ok);

    /// Lists the accounts for `use` and ticks `storedAccount`, an id, unless it is blank. Fails
    /// with elementNotFound when that account is not listed.
    void listAccounts(AccountUse use, const std::u16string &storedAccount);
    /// Shows the text's length, and enables `ok` while there is a text. Sets the session's change
    /// flag; so does accountTicked.
    void textChanged();
    /// The user ticked or unticked the row: one account at most is ticked.
    void accountTicked(int row);

    [[nodiscard]] bool isBlank() const;
    /// Takes the first ticked account as the chosen one; false, and the choice before stays, when
    /// none is ticked.
    [[nodiscard]] bool chooseAccount();

    [[nodiscard]] std::u16string text() const { return text_.text(); }
    /// The chosen account's id. Fails with objectNotSet before a choice.
    [[nodiscard]] std::u16string account() const;

private:
    RichTextBox &text_;
    TextBox &count_;
    ListView &accounts_;
    CommandButton &ok_;
    /// 0 before a choice.
    int chosenRow_ = 0;
};

} // namespace kvex

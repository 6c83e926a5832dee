// What a reply and an alert share: a text, its length, and the one account that sends it.
#pragma once

#include "platform/controls/Buttons.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/WindowDesign.h"
#include "rules/RuleState.h"
#include "ui/Accounts.h"

#include <string>

namespace kvex {

class MessageToSend {
public:
    /// Says what the server makes of a text, or "".
    using HintFor = std::u16string (*)(RuleState rule, const std::u16string &text);

    /// `hint` shows what `hintFor` says of the text.
    MessageToSend(RichTextBox &text, TextBox &count, Label &hint, HintFor hintFor,
                  ListView &accounts, CommandButton &ok);

    /// Lists the accounts for `use`. Ticks the account whose id is `storedAccount`, unless that is
    /// blank. Fails with elementNotFound when the list has no such account.
    void listAccounts(AccountUse use, const std::u16string &storedAccount);
    /// Shows the length of the text and its hint, and enables `ok` while there is a text. Sets the
    /// session's change flag, as accountTicked does.
    void textChanged();
    /// Call it when the user ticks or unticks the row. It keeps at most one account ticked.
    void accountTicked(int row);

    [[nodiscard]] bool isBlank() const;
    /// Chooses the first ticked account. When none is ticked, returns false and keeps the earlier
    /// choice.
    [[nodiscard]] bool chooseAccount();

    [[nodiscard]] std::u16string text() const { return text_.text(); }
    /// The id of the chosen account. Fails with objectNotSet before a choice.
    [[nodiscard]] std::u16string account() const;

private:
    RichTextBox &text_;
    TextBox &count_;
    Label &hint_;
    HintFor hintFor_;
    ListView &accounts_;
    CommandButton &ok_;
    /// The row of the chosen account, or 0 before a choice.
    int chosenRow_ = 0;
};

/// The controls that both dialogs share.
namespace design {

/// Where the message is typed.
[[nodiscard]] ControlDesign messageText(std::u16string name);
/// The length of the message; a label names it.
[[nodiscard]] ControlDesign characterCount();
/// The length and the hint in one row, below the message. `label` names the length.
[[nodiscard]] Layout countAndHint(std::u16string label);
/// The hint on the message that is typed in the control `message`.
[[nodiscard]] ControlDesign messageHint(std::u16string message);
/// The list of accounts. The user ticks one. Its pictures are those of listIcons.
[[nodiscard]] ControlDesign outAccounts();

/// The pictures of accounts and of people. A list names them by position.
[[nodiscard]] ControlDesign listIcons();
inline constexpr int accountPicture = 1;
inline constexpr int personPicture = 2;

} // namespace design

} // namespace kvex

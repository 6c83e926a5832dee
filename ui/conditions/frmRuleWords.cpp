#include "ui/conditions/frmRuleWords.h"

#include "component/session/Session.h"
#include "platform/Text.h"
#include "platform/controls/DesignPieces.h"
#include "rules/RuleState.h"
#include "ui/ListColumns.h"
#include "ui/conditions/frmRuleOptions.h"

namespace kvex {

WindowDesign frmRuleWordsDesign() {
    using namespace design;
    const std::u16string wordAwaited = u"Add a word first";
    return {
        .name = u"frmRuleWords",
        .caption = u"Select Words",
        .controls =
            {
                {.kind = ControlKind::checkBox,
                 .name = u"chkWordAsCommand",
                 .caption = u"As SMS Command (match from left)"},
                separator(),
                waitingButton(u"cmdClear", u"Clear &List", wordAwaited),
                waitingButton(u"cmdOptions", u"O&ptions", wordAwaited),
                waitingButton(u"cmdRemove", u"&Remove", wordAwaited),
                byEnter(waitingButton(u"cmdAdd", u"&Add", u"Type a word or a phrase first")),
                waiting(plainOkButton(), wordAwaited),
                cancelButton(),
                {.kind = ControlKind::textBox, .name = u"txtWord", .maxLength = 150},
                hintOn(u"txtWord", u"lblWordHint"),
                {.kind = ControlKind::listView,
                 .name = u"lvwWords",
                 .accessibleName = u"Selected words",
                 .columns = 44,
                 .lines = 10},
                label(u"Label1", u"&Words", u"txtWord"),
                hint(u"Label4", u"Type specific words or a phrase and click Add"),
            },
        .layout = aboveButtons({
            place(u"Label4"),
            place(u"Label1"),
            row({column({place(u"txtWord"), place(u"lblWordHint"), place(u"lvwWords", 1),
                         place(u"chkWordAsCommand")},
                        1),
                 buttonColumn({u"cmdAdd", u"cmdRemove", u"cmdClear", u"cmdOptions"})},
                1),
        }),
        .columns = 68,
        .lines = 24,
    };
}

frmRuleWords::frmRuleWords()
    : Form(frmRuleWordsDesign()), chkWordAsCommand(control<CheckBox>(u"chkWordAsCommand")),
      cmdAdd(control<CommandButton>(u"cmdAdd")), txtWord(control<TextBox>(u"txtWord")),
      lvwWords(control<ListView>(u"lvwWords")),
      words_(lvwWords, EntryList::Heading::firstRow,
             buttons({u"cmdRemove", u"cmdClear", u"cmdOptions", u"cmdOK"})) {
    words_.explainBy(control<Label>(u"lblWordHint"), txtWord, wordsHint);
    chkWordAsCommand.onClick = [this] { chkWordAsCommand_Click(); };
    onClick(u"cmdAdd", &frmRuleWords::cmdAdd_Click);
    onClick(u"cmdRemove", &frmRuleWords::cmdRemove_Click);
    onClick(u"cmdClear", &frmRuleWords::cmdClear_Click);
    onClick(u"cmdOptions", &frmRuleWords::cmdOptions_Click);
    onClick(u"cmdOK", &frmRuleWords::cmdOK_Click);
    onClick(u"cmdCancel", &frmRuleWords::cmdCancel_Click);
    txtWord.onChange = [this] { txtWord_Change(); };
    txtWord.setFocus();
}

void frmRuleWords::Form_Load() {
    beginList(lvwWords, u"Word");
    lvwWords.addRow(condition_heading::words);
    if (ruleState().strWords.empty()) {
        return;
    }
    words_.addJoined(ruleState().strWords);
    chkWordAsCommand.setValue(ruleState().intAsCommand);
}

void frmRuleWords::txtWord_Change() {
    cmdAdd.setEnabled(!trimmed(txtWord.text()).empty());
    words_.updateHint();
}

void frmRuleWords::cmdAdd_Click() {
    session().blnChanged = true;
    const std::u16string word = txtWord.text();
    if (!trimmed(word).empty()) {
        words_.add(word);
    }
    words_.finishTyping(txtWord);
}

void frmRuleWords::chkWordAsCommand_Click() {
    ruleState().intAsCommand = chkWordAsCommand.value();
    words_.updateHint();
}

void frmRuleWords::cmdRemove_Click() {
    words_.removeSelected();
}

void frmRuleWords::cmdClear_Click() {
    words_.clearIfConfirmed();
}

void frmRuleWords::cmdOptions_Click() {
    BuildString();
    showConditionOptions(u"WORD");
    words_.updateHint();
}

void frmRuleWords::cmdOK_Click() {
    BuildString();
    Unload();
}

void frmRuleWords::cmdCancel_Click() {
    Unload();
}

void frmRuleWords::BuildString() {
    ruleState().strWords = words_.joined();
    ruleState().intAsCommand = chkWordAsCommand.value();
}

} // namespace kvex

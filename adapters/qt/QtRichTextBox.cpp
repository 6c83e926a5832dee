#include "adapters/qt/QtRichTextBox.h"

#include <utility>

namespace kvex::qt {

QtRichTextBox::QtRichTextBox(const ControlDesign &design, const std::u16string &window,
                             QWidget &parent)
    : WidgetControl(design, window, *new TextView(&parent, design.columns, design.lines)) {
    if (design.readOnly) {
        shown().setReadOnly(true);
        // Nothing in it can be undone: what it showed before need not be kept.
        shown().setUndoRedoEnabled(false);
        shown().setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    }
    // Qt tells of changed formats and of unfinished input, too.
    QObject::connect(&shown(), &QTextEdit::textChanged, &shown(), [this] { textMayHaveChanged(); });
}

void QtRichTextBox::setText(const std::u16string &text) {
    shown().setContent(text);
}

void QtRichTextBox::setRuns(const std::vector<TextRun> &runs) {
    shown().setContent(runs);
}

void QtRichTextBox::textMayHaveChanged() {
    std::u16string now = text();
    if (now != told_) {
        told_ = std::move(now);
        run(onChange);
    }
}

} // namespace kvex::qt

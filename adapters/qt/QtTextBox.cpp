#include "adapters/qt/QtTextBox.h"

#include "adapters/qt/QText.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <limits>

namespace kvex::qt {
namespace {

namespace code {
constexpr int copy = 3;
constexpr int backspace = 8;
constexpr int paste = 22;
constexpr int cut = 24;
} // namespace code

} // namespace

LineEdit::LineEdit(QWidget *parent, int limit, int columns)
    : QLineEdit(parent), limit_(limit > 0 ? limit : std::numeric_limits<int>::max()),
      columns_(columns) {
    setMaxLength(std::numeric_limits<int>::max());
    // Dropped text would bypass the key filter.
    setAcceptDrops(false);
    connect(this, &QLineEdit::textChanged, this, &LineEdit::keepLimit);
}

void LineEdit::showText(const QString &text) {
    const QScopedValueRollback bound(isBound_, true);
    setText(text);
}

/// Cuts a text that assistive technology has set.
void LineEdit::keepLimit() {
    if (isBound_ || text().size() <= limit_) {
        return;
    }
    const QSignalBlocker onlyOnce(this);
    const bool isInPair = text().at(limit_ - 1).isHighSurrogate();
    setText(text().left(isInPair ? limit_ - 1 : limit_));
}

QSize LineEdit::sizeHint() const {
    return columns_ > 0 ? minimumSizeHint() : QLineEdit::sizeHint();
}

QSize LineEdit::minimumSizeHint() const {
    QSize size = QLineEdit::minimumSizeHint();
    if (columns_ > 0) {
        const int qtsRoom = fontMetrics().maxWidth();
        size.rwidth() += widthOf(columns_, *this) - qtsRoom;
    }
    return size;
}

void LineEdit::keyPressEvent(QKeyEvent *event) {
    const QScopedValueRollback bound(isBound_, true);
    if (event->matches(QKeySequence::Cut)) {
        cutIfPassed();
    } else if (event->matches(QKeySequence::Copy)) {
        copyIfPassed();
    } else if (event->matches(QKeySequence::Paste)) {
        pasteIfPassed();
    } else if (!isReadOnly() && isTyping(*event)) {
        insertFitting(passed(event->text()));
    } else if (isReadOnly() || event->key() != Qt::Key_Backspace || passes(code::backspace)) {
        QLineEdit::keyPressEvent(event);
    }
}

void LineEdit::inputMethodEvent(QInputMethodEvent *event) {
    const QScopedValueRollback bound(isBound_, true);
    QInputMethodEvent kept(event->preeditString(), event->attributes());
    kept.setCommitString(fitting(passed(event->commitString())), event->replacementStart(),
                         event->replacementLength());
    QLineEdit::inputMethodEvent(&kept);
}

/// The usual menu. Its clipboard commands also ask the filter.
void LineEdit::contextMenuEvent(QContextMenuEvent *event) {
    const QScopedValueRollback bound(isBound_, true);
    QMenu menu(this);
    const auto add = [this, &menu](const char *text, QKeySequence::StandardKey key, auto command,
                                   bool enabled) {
        menu.addAction(QLineEdit::tr(text), key, this, command)->setEnabled(enabled);
    };
    const bool isEditable = !isReadOnly();
    add("&Undo", QKeySequence::Undo, &QLineEdit::undo, isEditable && isUndoAvailable());
    add("&Redo", QKeySequence::Redo, &QLineEdit::redo, isEditable && isRedoAvailable());
    menu.addSeparator();
    add("Cu&t", QKeySequence::Cut, &LineEdit::cutIfPassed, isEditable && hasSelectedText());
    add("&Copy", QKeySequence::Copy, &LineEdit::copyIfPassed, hasSelectedText());
    add("&Paste", QKeySequence::Paste, &LineEdit::pasteIfPassed,
        isEditable && !QGuiApplication::clipboard()->text().isEmpty());
    menu.addSeparator();
    add("Select All", QKeySequence::SelectAll, &QLineEdit::selectAll, !text().isEmpty());
    menu.exec(event->globalPos());
}

/// The middle button inserts the selection of another window, as if the user had typed it.
void LineEdit::mouseReleaseEvent(QMouseEvent *event) {
    const QScopedValueRollback bound(isBound_, true);
    const QClipboard &clipboard = *QGuiApplication::clipboard();
    if (event->button() != Qt::MiddleButton || isReadOnly() || !clipboard.supportsSelection()) {
        QLineEdit::mouseReleaseEvent(event);
        return;
    }
    deselect();
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    insertFitting(passed(clipboard.text(QClipboard::Selection)));
}

bool LineEdit::passes(int code) const {
    return !filter_ || filter_(static_cast<std::int16_t>(code));
}

/// The typed characters that the filter lets through. Both halves of a surrogate pair pass, or
/// none.
QString LineEdit::passed(const QString &typed) const {
    QString kept;
    for (qsizetype at = 0; at < typed.size(); ++at) {
        const bool isPair = typed.at(at).isHighSurrogate() && at + 1 < typed.size() &&
                            typed.at(at + 1).isLowSurrogate();
        bool passesWhole = passes(typed.at(at).unicode());
        if (isPair) {
            passesWhole = passes(typed.at(at + 1).unicode()) && passesWhole;
        }
        if (passesWhole) {
            kept += typed.mid(at, isPair ? 2 : 1);
        }
        at += isPair ? 1 : 0;
    }
    return kept;
}

/// The beginning of `text`, up to its first line break, that fits within the limit. The text will
/// replace the selection.
QString LineEdit::fitting(const QString &text) const {
    const qsizetype kept = this->text().size() - selectedText().size();
    qsizetype room = std::max<qsizetype>(0, limit_ - kept);
    for (const char16_t lineBreak : {u'\r', u'\n'}) {
        const qsizetype end = text.indexOf(QChar(lineBreak));
        room = end < 0 ? room : std::min(room, end);
    }
    if (room < text.size() && room > 0 && text.at(room - 1).isHighSurrogate()) {
        --room;
    }
    return text.left(room);
}

/// Replaces the selection, unless nothing is left to insert.
void LineEdit::insertFitting(const QString &text) {
    if (const QString kept = fitting(text); !kept.isEmpty()) {
        insert(kept);
    }
}

void LineEdit::cutIfPassed() {
    if (!isReadOnly() && passes(code::cut)) {
        cut();
    }
}

void LineEdit::copyIfPassed() {
    if (passes(code::copy)) {
        copy();
    }
}

void LineEdit::pasteIfPassed() {
    if (!isReadOnly() && passes(code::paste)) {
        insertFitting(QGuiApplication::clipboard()->text());
    }
}

QtTextBox::QtTextBox(const ControlDesign &design, const std::u16string &window, QWidget &parent)
    : QtControl(design, window, *new LineEdit(&parent, design.maxLength, design.columns)) {
    shown().showText(toQt(design.caption));
    shown().setReadOnly(design.readOnly);
    shown().setKeyFilter([this](std::int16_t keyCode) {
        run(onKeyPress, keyCode);
        return keyCode != 0;
    });
    QObject::connect(&shown(), &QLineEdit::textChanged, &shown(), [this] { run(onChange); });
}

std::u16string QtTextBox::text() const {
    return fromQt(shown().text());
}

void QtTextBox::setText(const std::u16string &text) {
    shown().showText(toQt(text));
}

} // namespace kvex::qt

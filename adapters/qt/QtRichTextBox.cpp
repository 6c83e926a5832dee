#include "adapters/qt/QtRichTextBox.h"

#include "adapters/qt/Colours.h"
#include "adapters/qt/QText.h"
#include "platform/LineBreaks.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>

#include <map>
#include <utility>

namespace kvex::qt {
namespace {

/// The text format property that holds the colour that was set.
constexpr int meaning = QTextFormat::UserProperty;

QBrush drawn(Colour colour, const QPalette &palette) {
    const QColor wanted(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                        static_cast<int>(colour >> 16 & 0xFF));
    return readable(wanted, palette.color(QPalette::Active, QPalette::Base));
}

/// Black stands for the theme's text colour.
QTextCharFormat formatFor(Colour colour, const QPalette &palette) {
    QTextCharFormat format;
    if (colour != colour::black) {
        format.setProperty(meaning, colour);
        format.setForeground(drawn(colour, palette));
    }
    return format;
}

Colour meant(const QTextCharFormat &format) {
    return format.property(meaning).value<Colour>();
}

void addTo(std::vector<TextRun> &runs, const std::u16string &text, Colour colour) {
    if (runs.empty() || runs.back().colour != colour) {
        runs.push_back({{}, colour});
    }
    runs.back().text += text;
}

} // namespace

TextView::TextView(QWidget *parent, int columns, int lines)
    : QTextEdit(parent), columns_(columns), lines_(lines) {
    setAcceptRichText(false);
    setTabChangesFocus(true);
}

std::u16string TextView::content() const {
    // Unlike the plain text, the raw text keeps no-break spaces.
    QString raw = document()->toRawText();
    raw.replace(QChar::ParagraphSeparator, QChar::LineFeed);
    return withCrLf(fromQt(raw));
}

std::vector<TextRun> TextView::runs() const {
    std::vector<TextRun> runs;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block != document()->begin()) {
            addTo(runs, u"\r\n", meant(block.charFormat()));
        }
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            addTo(runs, fromQt(piece.fragment().text()), meant(piece.fragment().charFormat()));
        }
    }
    return runs;
}

void TextView::setContent(const std::u16string &text) {
    // Otherwise the text would have the colour of the text before.
    setCurrentCharFormat({});
    setPlainText(toQt(text));
    placeCaret();
}

void TextView::setContent(const std::vector<TextRun> &runs) {
    QTextCursor cursor(document());
    // As one change, so that Qt lays out the text only once.
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    std::map<Colour, QTextCharFormat> formats;
    for (const TextRun &run : runs) {
        const auto [format, isNew] = formats.try_emplace(run.colour);
        if (isNew) {
            format->second = formatFor(run.colour, palette());
        }
        cursor.insertText(toQt(run.text), format->second);
    }
    cursor.endEditBlock();
    placeCaret();
}

/// A read-only view stays at its beginning, where reading starts.
void TextView::placeCaret() {
    moveCursor(isReadOnly() ? QTextCursor::Start : QTextCursor::End);
}

QSize TextView::sizeHint() const {
    return columns_ > 0 || lines_ > 0 ? roomFor(lines_) : QTextEdit::sizeHint();
}

QSize TextView::minimumSizeHint() const {
    constexpr int leastLines = 3;
    return roomFor(std::min(lines_, leastLines));
}

QSize TextView::roomFor(int lines) const {
    const QSize least = QTextEdit::minimumSizeHint();
    const int around = 2 * (frameWidth() + qRound(document()->documentMargin()));
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return {columns_ > 0 ? widthOf(columns_, *this) + around + bar : least.width(),
            lines > 0 ? heightOf(lines, *this) + around : least.height()};
}

void TextView::keyPressEvent(QKeyEvent *event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && isReadOnly()) {
        event->ignore();
    } else if (isEnter) {
        // With Shift, Qt would insert a line separator instead of a line break.
        QKeyEvent plain(event->type(), event->key(), Qt::NoModifier, event->text());
        QTextEdit::keyPressEvent(&plain);
    } else {
        QTextEdit::keyPressEvent(event);
    }
}

void TextView::changeEvent(QEvent *event) {
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        adaptColours();
    }
}

void TextView::adaptColours() {
    QTextCursor cursor(document());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextCharFormat format = piece.fragment().charFormat();
            if (format.hasProperty(meaning)) {
                cursor.setPosition(piece.fragment().position());
                cursor.setPosition(piece.fragment().position() + piece.fragment().length(),
                                   QTextCursor::KeepAnchor);
                cursor.mergeCharFormat(formatFor(meant(format), palette()));
            }
        }
    }
}

QtRichTextBox::QtRichTextBox(const ControlDesign &design, const std::u16string &window,
                             QWidget &parent)
    : QtControl(design, window, *new TextView(&parent, design.columns, design.lines)) {
    if (design.readOnly) {
        shown().setReadOnly(true);
        // Nothing in it can be undone, so Qt need not keep earlier texts.
        shown().setUndoRedoEnabled(false);
        shown().setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    }
    // Qt also signals changed formats and unfinished input.
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

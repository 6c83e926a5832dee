// A text box of several lines in colours.
#pragma once

#include "adapters/qt/QtControl.h"
#include "platform/controls/RichTextBox.h"

#include <QTextEdit>

namespace kvex::qt {

/// A QTextEdit that takes plain text only and keeps every unit of it. It draws the colours so that
/// they are readable in every theme.
class TextView final : public QTextEdit {
public:
    TextView(QWidget *parent, int columns, int lines);

    /// Lines end in CR LF.
    [[nodiscard]] std::u16string content() const;
    /// In the colours that were set, not in those drawn.
    [[nodiscard]] std::vector<TextRun> runs() const;
    void setContent(const std::u16string &text);
    void setContent(const std::vector<TextRun> &runs);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    [[nodiscard]] QSize roomFor(int lines) const;
    void placeCaret();
    void adaptColours();

    int columns_;
    int lines_;
};

class QtRichTextBox final : public QtControl<RichTextBox, TextView> {
public:
    QtRichTextBox(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] std::u16string text() const override { return shown().content(); }
    [[nodiscard]] std::vector<TextRun> runs() const override { return shown().runs(); }
    void setText(const std::u16string &text) override;
    void setRuns(const std::vector<TextRun> &runs) override;

private:
    void textMayHaveChanged();

    /// The text at the last change event.
    std::u16string told_;
};

} // namespace kvex::qt

// A QTextEdit of plain text in colours: it takes plain text only, keeps it unit by unit, and
// draws the colours so that they can be read on whatever theme is in force.
#pragma once

#include "platform/controls/RichTextBox.h"

#include <QTextEdit>

namespace kvex::qt {

class TextView final : public QTextEdit {
public:
    TextView(QWidget *parent, int columns, int lines);

    /// Lines end in CR LF.
    [[nodiscard]] std::u16string content() const;
    /// In the colours that were asked for.
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

} // namespace kvex::qt

// Boxes in which the user edits a text: of one line, and of many lines in colours.
#pragma once

#include "adapters/lightweight/LightRichTextBox.h"
#include "adapters/lightweight/LightTextBox.h"
#include "adapters/terminal/ControlView.h"
#include "adapters/terminal/WrappedText.h"

#include <string>
#include <vector>

namespace kvex::terminal {

/// "[text      ]". The text moves sideways so that the caret stays in view.
class TextBoxView final : public ControlView {
public:
    TextBoxView(lightweight::LightTextBox &box, Ability ability)
        : ControlView(box, ability), box_(box) {}

    [[nodiscard]] Extent columns() const override;
    [[nodiscard]] Extent rows(int, Economy) const override { return {1, 1}; }
    [[nodiscard]] bool growsAcross() const override { return true; }
    void paint(Canvas &canvas, const Rect &at, const Look &look) override;
    void click(Point at, bool twice) override;

private:
    void followCaret(int columns);

    lightweight::LightTextBox &box_;
    /// What is inside the brackets, as painted last.
    Rect inside_{};
    /// The first unit in view.
    std::size_t first_ = 0;
};

/// Wrapped lines in a frame. What has a colour is also bold, so that it differs on every terminal.
class RichTextView final : public ControlView {
public:
    RichTextView(lightweight::LightRichTextBox &box, Ability ability);

    [[nodiscard]] Extent columns() const override;
    [[nodiscard]] Extent rows(int columns, Economy economy) const override;
    [[nodiscard]] bool growsAcross() const override { return true; }
    [[nodiscard]] bool growsDown() const override { return true; }
    void paint(Canvas &canvas, const Rect &at, const Look &look) override;
    void click(Point at, bool twice) override;
    bool scroll(int rows) override;

private:
    void wrap();
    void followCaret();
    void paintLine(Canvas &canvas, Point at, const WrappedLine &line,
                   const std::vector<TextRun> &runs) const;
    [[nodiscard]] Style styleOf(Colour colour) const;
    /// The line of the caret's movements that holds `at`.
    [[nodiscard]] lightweight::TextLine lineWith(std::size_t at);

    lightweight::LightRichTextBox &box_;
    /// What is inside the frame, as painted last.
    Rect shown_{};
    std::size_t topLine_ = 0;
    /// The text that is wrapped, its lines, and their width.
    std::u16string text_;
    std::vector<WrappedLine> lines_{{0, 0}};
    int width_ = 0;
    /// The caret when it was last brought into view.
    std::size_t followed_ = 0;
};

} // namespace kvex::terminal

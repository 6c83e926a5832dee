// Labels, and frames.
#pragma once

#include "adapters/controls/Keys.h"
#include "adapters/terminal/ControlView.h"

namespace kvex::terminal {

/// Puts the part of a caption that stands in one line, with its access key underlined.
void putCaption(Canvas &canvas, Point at, const controls::Caption &caption, std::size_t from,
                std::size_t to, Style style);

/// A text that wraps to its width.
class LabelView final : public ControlView {
public:
    using ControlView::ControlView;

    [[nodiscard]] Extent columns() const override;
    [[nodiscard]] Extent rows(int columns, Economy economy) const override;
    [[nodiscard]] bool startsSection() const override { return !element().design().hint; }
    void paint(Canvas &canvas, const Rect &at, const Look &look) override;

private:
    [[nodiscard]] controls::Caption caption() const;
};

/// A border, or a separating line.
class FrameView final : public ControlView {
public:
    using ControlView::ControlView;

    [[nodiscard]] Extent columns() const override { return {1, 1}; }
    [[nodiscard]] Extent rows(int columns, Economy economy) const override;
    void paint(Canvas &canvas, const Rect &at, const Look &look) override;
};

} // namespace kvex::terminal

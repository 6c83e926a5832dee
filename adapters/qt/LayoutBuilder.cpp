#include "adapters/qt/LayoutBuilder.h"

#include <QBoxLayout>
#include <QFrame>

#include <algorithm>
#include <memory>

namespace kvex::qt {
namespace {

bool hasScrolling(const Layout &layout) {
    return layout.scrolls || std::ranges::any_of(layout.pieces, hasScrolling);
}

/// Margins and spacing grow with the font.
class LayoutBuilder {
public:
    LayoutBuilder(QWidget &window, const FindControl &find)
        : window_(window), margin_(window.fontMetrics().height() * 2 / 3),
          spacing_(window.fontMetrics().height() * 2 / 5), find_(find) {}

    [[nodiscard]] std::unique_ptr<QBoxLayout> box(QBoxLayout::Direction direction,
                                                  const std::vector<Layout> &pieces) const {
        auto box = std::make_unique<QBoxLayout>(direction);
        box->setSpacing(spacing_);
        for (const Layout &piece : pieces) {
            add(*box, piece);
        }
        return box;
    }

    void fill(QWidget &widget, const std::vector<Layout> &pieces) const {
        auto content = box(QBoxLayout::TopToBottom, pieces);
        content->setContentsMargins(margin_, margin_, margin_, margin_);
        widget.setLayout(content.release());
    }

private:
    void add(QBoxLayout &box, const Layout &piece) const {
        switch (piece.kind) {
        case Layout::Kind::control:
            addControl(box, piece);
            break;
        case Layout::Kind::row:
            addBox(box, QBoxLayout::LeftToRight, piece);
            break;
        case Layout::Kind::column:
            addBox(box, QBoxLayout::TopToBottom, piece);
            break;
        case Layout::Kind::spring:
            box.addStretch(piece.stretch);
            break;
        }
    }

    void addBox(QBoxLayout &outer, QBoxLayout::Direction direction, const Layout &piece) const {
        auto inner = box(direction, piece.pieces);
        inner->setContentsMargins(0, 0, 0, 0);
        if (piece.scrolls) {
            outer.addWidget(new ScrollPane(&window_, inner.release()), piece.stretch);
        } else {
            outer.addLayout(inner.release(), piece.stretch);
        }
    }

    void addControl(QBoxLayout &box, const Layout &piece) const {
        Element *control = find_(piece.control);
        if (control == nullptr) {
            return;
        }
        QWidget &widget = control->widget();
        if (!piece.pieces.empty()) {
            fill(widget, piece.pieces);
        } else if (auto *line = dynamic_cast<QFrame *>(&widget);
                   line != nullptr && line->frameShape() == QFrame::HLine &&
                   box.direction() == QBoxLayout::LeftToRight) {
            line->setFrameShape(QFrame::VLine);
        }
        box.addWidget(&widget, piece.stretch);
        control->setPlaced();
    }

    QWidget &window_;
    int margin_;
    int spacing_;
    const FindControl &find_;
};

} // namespace

ScrollPane &buildLayout(QWidget &window, const Layout &layout, const FindControl &find) {
    LayoutBuilder(window, find).fill(window, {hasScrolling(layout) ? layout : scrolling({layout})});
    window.layout()->setSizeConstraint(QLayout::SetNoConstraint);
    return *window.findChild<ScrollPane *>();
}

} // namespace kvex::qt

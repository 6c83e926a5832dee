#include "adapters/qt/QtStaticControls.h"

#include "adapters/controls/Keys.h"
#include "adapters/qt/Colours.h"
#include "adapters/qt/QText.h"

#include <QFrame>
#include <QGroupBox>
#include <QPainter>

namespace kvex::qt {
namespace {

/// A label that wraps its text and draws it in the theme's quieter colour.
class HintLabel final : public QLabel {
public:
    explicit HintLabel(QWidget *parent) : QLabel(parent) {
        setWordWrap(true);
        QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override {
        QPainter painter(this);
        painter.setPen(quieterText(palette(), foregroundRole(), backgroundRole()));
        painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextWordWrap, text());
    }
};

QLabel &createLabel(bool hint, QWidget &parent) {
    if (hint) {
        return *new HintLabel(&parent);
    }
    auto &label = *new QLabel(&parent);
    label.setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return label;
}

QWidget &createFrame(const QString &caption, QWidget &parent, bool surrounds) {
    if (surrounds) {
        return *new QGroupBox(caption, &parent);
    }
    auto &line = *new QFrame(&parent);
    line.setFrameStyle(QFrame::HLine | QFrame::Sunken);
    return line;
}

} // namespace

QtLabel::QtLabel(const ControlDesign &design, const std::u16string &window, QWidget &parent)
    : QtControl(design, window, createLabel(design.hint, parent)) {
    shown().setTextFormat(Qt::PlainText);
    setCaption(design.caption);
}

void QtLabel::setCaption(const std::u16string &caption) {
    caption_ = caption;
    // Qt finds the access key in the text only if there is a buddy.
    const bool keyIsRead = shown().buddy() != nullptr;
    shown().setText(toQt(keyIsRead ? caption : controls::parseCaption(caption).shown));
    describe();
}

void QtLabel::setBuddy(QWidget &buddy) {
    shown().setBuddy(&buddy);
    setCaption(caption_);
}

void QtLabel::setDescribed(QWidget &widget) {
    described_ = &widget;
    describe();
}

/// Qt tells assistive technology when the description changes, and only then.
void QtLabel::describe() {
    if (described_ != nullptr) {
        described_->setAccessibleDescription(
            visible() ? toQt(controls::parseCaption(caption_).shown) : QString());
    }
}

QtFrame::QtFrame(const ControlDesign &design, const std::u16string &window, QWidget &parent,
                 bool surrounds)
    : QtControl(design, window, createFrame(toQt(design.caption), parent, surrounds)) {}

} // namespace kvex::qt

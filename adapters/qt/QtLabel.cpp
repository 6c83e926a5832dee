#include "adapters/qt/QtLabel.h"

#include "adapters/controls/Caption.h"
#include "adapters/qt/Colours.h"
#include "adapters/qt/QText.h"

#include <QPainter>

namespace kvex::qt {
namespace {

/// Wrapped, and drawn in the quieter colour of whatever theme is in force.
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

} // namespace

QtLabel::QtLabel(const ControlDesign &design, const std::u16string &window, QWidget &parent)
    : WidgetControl(design, window, createLabel(design.hint, parent)) {
    shown().setTextFormat(Qt::PlainText);
    setCaption(design.caption);
}

void QtLabel::setCaption(const std::u16string &caption) {
    caption_ = caption;
    // Only with a buddy does Qt read an access key out of the text.
    const bool keyIsRead = shown().buddy() != nullptr;
    shown().setText(toQt(keyIsRead ? caption : controls::parseCaption(caption).shown));
}

void QtLabel::setBuddy(QWidget &buddy) {
    shown().setBuddy(&buddy);
    setCaption(caption_);
}

} // namespace kvex::qt

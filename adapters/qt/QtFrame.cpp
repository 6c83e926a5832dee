#include "adapters/qt/QtFrame.h"

#include "adapters/qt/QText.h"

#include <QFrame>
#include <QGroupBox>

namespace kvex::qt {
namespace {

QWidget &createFrame(const QString &caption, QWidget &parent, bool surrounds) {
    if (surrounds) {
        return *new QGroupBox(caption, &parent);
    }
    auto &line = *new QFrame(&parent);
    line.setFrameStyle(QFrame::HLine | QFrame::Sunken);
    return line;
}

} // namespace

QtFrame::QtFrame(const ControlDesign &design, const std::u16string &window, QWidget &parent,
                 bool surrounds)
    : WidgetControl(design, window, createFrame(toQt(design.caption), parent, surrounds)) {}

} // namespace kvex::qt

// A label: a QLabel.
#pragma once

#include "adapters/qt/ControlWidget.h"
#include "platform/controls/Label.h"

#include <QLabel>

namespace kvex::qt {

class QtLabel final : public WidgetControl<Label, QLabel> {
public:
    QtLabel(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] std::u16string caption() const override { return caption_; }
    void setCaption(const std::u16string &caption) override;
    /// Where the access key goes.
    void setBuddy(QWidget &buddy);

private:
    std::u16string caption_;
};

} // namespace kvex::qt

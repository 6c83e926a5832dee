// An option button: a QRadioButton.
#pragma once

#include "adapters/qt/ControlWidget.h"
#include "platform/controls/OptionButton.h"

#include <QButtonGroup>
#include <QRadioButton>

namespace kvex::qt {

class QtOptionButton final : public WidgetControl<OptionButton, QRadioButton> {
public:
    /// Only one member of `group` is selected at a time.
    QtOptionButton(const ControlDesign &design, const std::u16string &window, QWidget &parent,
                   QButtonGroup &group);

    [[nodiscard]] std::u16string caption() const override;
    void setCaption(const std::u16string &caption) override;
    [[nodiscard]] bool selected() const override { return shown().isChecked(); }
    void select() override { shown().setChecked(true); }
};

} // namespace kvex::qt

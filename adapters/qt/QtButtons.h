// Command buttons, check boxes and option buttons.
#pragma once

#include "adapters/qt/QtControl.h"
#include "platform/controls/Buttons.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

namespace kvex::qt {

class QtCommandButton final : public QtControl<CommandButton, QPushButton> {
public:
    QtCommandButton(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] std::u16string caption() const override;
    void setCaption(const std::u16string &caption) override;
};

class QtCheckBox final : public QtControl<CheckBox, QCheckBox> {
public:
    QtCheckBox(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] std::int16_t value() const override;
    void setValue(std::int16_t value) override;
};

class QtOptionButton final : public QtControl<OptionButton, QRadioButton> {
public:
    /// `group` keeps at most one member selected.
    QtOptionButton(const ControlDesign &design, const std::u16string &window, QWidget &parent,
                   QButtonGroup &group);

    [[nodiscard]] std::u16string caption() const override;
    void setCaption(const std::u16string &caption) override;
    [[nodiscard]] bool selected() const override { return shown().isChecked(); }
    void select() override { shown().setChecked(true); }
};

} // namespace kvex::qt

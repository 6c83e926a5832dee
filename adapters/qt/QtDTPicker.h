// A date or time picker: a field for the value, and a check box that clears it.
#pragma once

#include "adapters/controls/PickerValue.h"
#include "adapters/qt/DateTimeEdit.h"
#include "adapters/qt/QtControl.h"

#include <QCheckBox>

namespace kvex::qt {

class QtDTPicker final : public QtControl<controls::PickerValue> {
public:
    QtDTPicker(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] QWidget &focusTarget() const override;
    [[nodiscard]] std::vector<QWidget *> tabStops() const override { return {&tick_, &field_}; }
    void setSpokenName(const QString &name) override;

private:
    void valueSet() override;
    void ticked();
    void edited(const QDateTime &value);

    QCheckBox &tick_;
    DateTimeEdit &field_;
    /// The new value comes from the field. Writing it back would move the caret.
    bool fieldLeads_ = false;
};

} // namespace kvex::qt

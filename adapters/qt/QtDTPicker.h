// A date or time picker: a check box that says whether there is a value, and a field for it.
#pragma once

#include "adapters/controls/PickerValue.h"
#include "adapters/qt/ControlWidget.h"
#include "adapters/qt/DateTimeEdit.h"

#include <QCheckBox>

namespace kvex::qt {

class QtDTPicker final : public WidgetControl<controls::PickerValue> {
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
    /// The field shows the value that is being set, and where in it the user is.
    bool fieldLeads_ = false;
};

} // namespace kvex::qt

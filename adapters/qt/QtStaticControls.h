// The controls that the user only sees: labels and frames.
#pragma once

#include "adapters/qt/QtControl.h"
#include "platform/controls/Label.h"

#include <QLabel>

namespace kvex::qt {

class QtLabel final : public QtControl<Label, QLabel> {
public:
    QtLabel(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] std::u16string caption() const override { return caption_; }
    void setCaption(const std::u16string &caption) override;
    /// The widget that the access key leads to.
    void setBuddy(QWidget &buddy);
    /// The widget that the caption describes while the label is visible.
    void setDescribed(QWidget &widget);

private:
    void visibleSet() override { describe(); }
    void describe();

    std::u16string caption_;
    QWidget *described_ = nullptr;
};

/// A box around other controls, or a separating line.
class QtFrame final : public QtControl<Control> {
public:
    /// `surrounds` says whether the layout puts controls into the frame.
    QtFrame(const ControlDesign &design, const std::u16string &window, QWidget &parent,
            bool surrounds);
};

} // namespace kvex::qt

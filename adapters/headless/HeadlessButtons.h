// The controls that show a caption and at most a mark: labels, buttons, check boxes, options.
#pragma once

#include "adapters/headless/HeadlessControl.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Label.h"
#include "platform/controls/OptionButton.h"

namespace kvex::headless {

/// A kind of control whose caption can change.
template <class Kind> class HeadlessCaptioned : public HeadlessControl<Kind> {
public:
    HeadlessCaptioned(HeadlessWindow *window, const ControlDesign &design)
        : HeadlessControl<Kind>(window, design), caption_(design.caption) {}

    [[nodiscard]] std::u16string caption() const final { return caption_; }
    void setCaption(const std::u16string &caption) final { caption_ = caption; }
    [[nodiscard]] std::u16string_view accessCaption() const final { return caption_; }

private:
    std::u16string caption_;
};

class HeadlessLabel final : public HeadlessCaptioned<Label> {
public:
    using HeadlessCaptioned::HeadlessCaptioned;
    [[nodiscard]] bool takesFocus() const override { return false; }
};

class HeadlessCommandButton final : public HeadlessCaptioned<CommandButton> {
public:
    using HeadlessCaptioned::HeadlessCaptioned;
    void click() override { deliver(onClick); }
    bool press(Key key) override;
};

class HeadlessCheckBox final : public HeadlessControl<CheckBox> {
public:
    HeadlessCheckBox(HeadlessWindow *window, const ControlDesign &design)
        : HeadlessControl(window, design), ticked_(design.selected) {}

    [[nodiscard]] std::int16_t value() const override { return ticked_ ? 1 : 0; }
    void setValue(std::int16_t value) override;
    [[nodiscard]] std::u16string_view accessCaption() const override { return design().caption; }
    void click() override;
    bool press(Key key) override;

private:
    bool ticked_;
};

class HeadlessOptionButton final : public HeadlessCaptioned<OptionButton> {
public:
    HeadlessOptionButton(HeadlessWindow *window, const ControlDesign &design)
        : HeadlessCaptioned(window, design), selected_(design.selected) {}

    [[nodiscard]] bool selected() const override { return selected_; }
    void select() override;
    /// Tab reaches of a group the selected member; the arrow keys reach the others.
    [[nodiscard]] bool isTabStop() const override;
    void click() override;
    bool press(Key key) override;

private:
    [[nodiscard]] std::vector<HeadlessOptionButton *> group() const;
    [[nodiscard]] std::vector<HeadlessOptionButton *> usableGroup() const;

    bool selected_;
};

} // namespace kvex::headless

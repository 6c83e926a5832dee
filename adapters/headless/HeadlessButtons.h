// Command buttons, check boxes and option buttons.
#pragma once

#include "adapters/headless/HeadlessControl.h"
#include "platform/controls/Buttons.h"

#include <vector>

namespace kvex::headless {

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
    /// Tab reaches only the selected member of a group. The arrow keys reach the others.
    [[nodiscard]] bool isTabStop() const override;
    void click() override;
    bool press(Key key) override;

private:
    [[nodiscard]] std::vector<HeadlessOptionButton *> group() const;
    [[nodiscard]] std::vector<HeadlessOptionButton *> usableGroup() const;

    bool selected_;
};

} // namespace kvex::headless

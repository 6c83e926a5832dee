// Command buttons, check boxes and option buttons.
#pragma once

#include "adapters/lightweight/LightControl.h"
#include "platform/controls/Buttons.h"

#include <vector>

namespace kvex::lightweight {

class LightCommandButton final : public LightCaptioned<CommandButton> {
public:
    using LightCaptioned::LightCaptioned;
    void click() override { deliver(onClick); }
    bool press(Key key) override;
};

class LightCheckBox final : public LightControl<CheckBox> {
public:
    LightCheckBox(LightWindow *window, const ControlDesign &design)
        : LightControl(window, design), ticked_(design.selected) {}

    [[nodiscard]] std::int16_t value() const override { return ticked_ ? 1 : 0; }
    void setValue(std::int16_t value) override;
    [[nodiscard]] std::u16string_view accessCaption() const override { return design().caption; }
    void click() override;
    bool press(Key key) override;

private:
    bool ticked_;
};

class LightOptionButton final : public LightCaptioned<OptionButton> {
public:
    LightOptionButton(LightWindow *window, const ControlDesign &design)
        : LightCaptioned(window, design), selected_(design.selected) {}

    [[nodiscard]] bool selected() const override { return selected_; }
    void select() override;
    /// Tab reaches only the selected member of a group. The arrow keys reach the others.
    [[nodiscard]] bool isTabStop() const override;
    void click() override;
    bool press(Key key) override;

private:
    [[nodiscard]] std::vector<LightOptionButton *> group() const;
    [[nodiscard]] std::vector<LightOptionButton *> usableGroup() const;

    bool selected_;
};

} // namespace kvex::lightweight

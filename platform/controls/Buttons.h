// The controls that the user clicks: command buttons, check boxes and option buttons.
#pragma once

#include "platform/controls/Control.h"

#include <cstdint>
#include <functional>
#include <string>

namespace kvex {

/// A button that runs a command. A "&" in the caption makes the next character the access key.
class CommandButton : public Control {
public:
    std::function<void()> onClick;

    [[nodiscard]] virtual std::u16string caption() const = 0;
    virtual void setCaption(const std::u16string &caption) = 0;
};

/// A box that the user ticks or unticks.
class CheckBox : public Control {
public:
    std::function<void()> onClick;

    /// 1 if it is ticked, 0 if not.
    [[nodiscard]] virtual std::int16_t value() const = 0;
    /// Fails with invalidPropertyValue unless the value is 0 or 1.
    virtual void setValue(std::int16_t value) = 0;
};

/// One choice of a group. Members of a group share a group name in the design.
class OptionButton : public Control {
public:
    /// The user selected this member, even if it was already selected.
    std::function<void()> onClick;

    [[nodiscard]] virtual std::u16string caption() const = 0;
    virtual void setCaption(const std::u16string &caption) = 0;
    [[nodiscard]] virtual bool selected() const = 0;
    /// Selects this member and deselects the others of its group.
    virtual void select() = 0;
};

} // namespace kvex

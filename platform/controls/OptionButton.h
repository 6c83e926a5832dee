// One choice of a group. Members of a group share a group name in the design.
#pragma once

#include "platform/controls/Control.h"

#include <functional>

namespace kvex {

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

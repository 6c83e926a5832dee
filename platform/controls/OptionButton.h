// One choice of a group; the members of a group are the controls of one array name.
#pragma once

#include "platform/controls/Control.h"

#include <functional>

namespace kvex {

class OptionButton : public Control {
public:
    /// Runs when the user selects this member, also when it was selected already.
    std::function<void()> onClick;

    [[nodiscard]] virtual std::u16string caption() const = 0;
    virtual void setCaption(const std::u16string &caption) = 0;
    [[nodiscard]] virtual bool selected() const = 0;
    /// Selects this member, which deselects the others of its group.
    virtual void select() = 0;
};

} // namespace kvex

// A button that runs a command. A "&" in the caption makes the next character the access key.
#pragma once

#include "platform/controls/Control.h"

#include <functional>

namespace kvex {

class CommandButton : public Control {
public:
    std::function<void()> onClick;

    [[nodiscard]] virtual std::u16string caption() const = 0;
    virtual void setCaption(const std::u16string &caption) = 0;
};

} // namespace kvex

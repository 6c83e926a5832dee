// A box that the user ticks or unticks.
#pragma once

#include "platform/controls/Control.h"

#include <cstdint>
#include <functional>

namespace kvex {

class CheckBox : public Control {
public:
    std::function<void()> onClick;

    /// 1 if it is ticked, 0 if not.
    [[nodiscard]] virtual std::int16_t value() const = 0;
    /// Fails with invalidPropertyValue unless the value is 0 or 1.
    virtual void setValue(std::int16_t value) = 0;
};

} // namespace kvex

// A box that is ticked or not.
#pragma once

#include "platform/controls/Control.h"

#include <cstdint>
#include <functional>

namespace kvex {

class CheckBox : public Control {
public:
    std::function<void()> onClick;

    /// 1 when ticked, else 0.
    [[nodiscard]] virtual std::int16_t value() const = 0;
    /// Fails with invalidPropertyValue for anything but 0 and 1.
    virtual void setValue(std::int16_t value) = 0;
};

} // namespace kvex

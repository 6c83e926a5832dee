// A text. Its access key leads to its buddy control.
#pragma once

#include "platform/controls/Control.h"

namespace kvex {

class Label : public Control {
public:
    [[nodiscard]] virtual std::u16string caption() const = 0;
    virtual void setCaption(const std::u16string &caption) = 0;
};

} // namespace kvex

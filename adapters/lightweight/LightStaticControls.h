// The controls that the user only sees: labels, frames, image lists.
#pragma once

#include "adapters/lightweight/LightControl.h"
#include "platform/controls/Label.h"

namespace kvex::lightweight {

class LightLabel final : public LightCaptioned<Label> {
public:
    using LightCaptioned::LightCaptioned;
    [[nodiscard]] bool takesFocus() const override { return false; }
};

/// A frame, or an image list.
class LightFrame final : public LightControl<Control> {
public:
    using LightControl::LightControl;
    [[nodiscard]] bool takesFocus() const override { return false; }
};

} // namespace kvex::lightweight

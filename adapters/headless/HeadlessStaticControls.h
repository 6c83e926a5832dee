// The controls that the user only sees: labels, frames, image lists.
#pragma once

#include "adapters/headless/HeadlessControl.h"
#include "platform/controls/Label.h"

namespace kvex::headless {

class HeadlessLabel final : public HeadlessCaptioned<Label> {
public:
    using HeadlessCaptioned::HeadlessCaptioned;
    [[nodiscard]] bool takesFocus() const override { return false; }
};

/// A frame, or an image list.
class HeadlessFrame final : public HeadlessControl<Control> {
public:
    using HeadlessControl::HeadlessControl;
    [[nodiscard]] bool takesFocus() const override { return false; }
};

} // namespace kvex::headless

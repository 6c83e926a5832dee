// Designs of controls for the tests of toolkits.
#pragma once

#include "platform/controls/WindowDesign.h"

#include <string>
#include <utility>
#include <vector>

namespace kvex::test {

[[nodiscard]] inline ControlDesign control(ControlKind kind, std::u16string name,
                                           std::u16string caption = {}) {
    return {kind, std::move(name), std::move(caption)};
}

[[nodiscard]] inline ControlDesign disabled(ControlDesign design) {
    design.enabled = false;
    return design;
}

[[nodiscard]] inline ControlDesign hidden(ControlDesign design) {
    design.visible = false;
    return design;
}

/// A layout of all controls, one below the other.
[[nodiscard]] inline Layout below(const std::vector<ControlDesign> &controls) {
    std::vector<Layout> pieces;
    for (const ControlDesign &design : controls) {
        if (design.kind != ControlKind::imageList) {
            pieces.push_back(place(design.name));
        }
    }
    return column(std::move(pieces));
}

} // namespace kvex::test

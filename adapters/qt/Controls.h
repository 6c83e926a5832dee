// The controls of one window, built from its design.
#pragma once

#include "adapters/qt/Dialog.h"
#include "adapters/qt/QtControl.h"
#include "platform/controls/WindowDesign.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace kvex::qt {

class Controls {
public:
    /// Builds the controls as children of `dialog` and sets their layout and tab order.
    Controls(const WindowDesign &design, Dialog &dialog);

    /// Null if no control has the name.
    [[nodiscard]] Control *find(std::u16string_view name) const;

private:
    struct Built {
        std::unique_ptr<Control> control;
        /// The same object as `control`.
        Element *widget;
    };
    class Builder;

    [[nodiscard]] Element *widgetOf(std::u16string_view name) const;
    void nameAloud(const WindowDesign &design);
    void setTabOrder(const WindowDesign &design);

    std::map<std::u16string, Built, std::less<>> built_;
};

} // namespace kvex::qt

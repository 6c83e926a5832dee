// The controls of one window, built from its design.
#pragma once

#include "adapters/qt/ControlWidget.h"
#include "adapters/qt/Dialog.h"
#include "platform/controls/WindowDesign.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace kvex::qt {

class Controls {
public:
    /// Builds them as children of `dialog`, in their layout and tab order.
    Controls(const WindowDesign &design, Dialog &dialog);

    /// Null for none.
    [[nodiscard]] Control *find(std::u16string_view name) const;

private:
    struct Built {
        std::unique_ptr<Control> control;
        /// The same object.
        ControlWidget *widget;
    };
    class Builder;

    [[nodiscard]] ControlWidget *widgetOf(std::u16string_view name) const;
    void nameAloud(const WindowDesign &design);
    void setTabOrder(const WindowDesign &design);

    std::map<std::u16string, Built, std::less<>> built_;
};

} // namespace kvex::qt

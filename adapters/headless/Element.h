// A control as its window and the user see it; HeadlessControl adds what code sees.
#pragma once

#include "adapters/controls/EventDelivery.h"
#include "adapters/controls/Key.h"
#include "platform/controls/WindowDesign.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace kvex::headless {

using controls::Key;

class HeadlessWindow;

class Element {
public:
    Element(HeadlessWindow *window, ControlDesign design);
    virtual ~Element() = default;
    Element(const Element &) = delete;
    Element &operator=(const Element &) = delete;

    [[nodiscard]] const ControlDesign &design() const { return design_; }
    [[nodiscard]] bool isEnabled() const { return enabled_; }
    void enable(bool enabled);
    [[nodiscard]] bool isVisible() const { return visible_; }
    void reveal(bool visible);
    [[nodiscard]] bool isUsable() const { return enabled_ && visible_; }
    /// Fails with invalidCall when it cannot have the focus.
    void takeFocus();

    /// Whether its kind can have the focus.
    [[nodiscard]] virtual bool takesFocus() const { return true; }
    /// Whether Tab stops at it while it is usable.
    [[nodiscard]] virtual bool isTabStop() const { return takesFocus(); }
    /// The caption whose access key leads to it.
    [[nodiscard]] virtual std::u16string_view accessCaption() const { return {}; }

    /// What a user does to it while it is usable.
    virtual void click() {}
    /// False leaves the key to the window.
    virtual bool press(Key) { return false; }
    /// A character, which can be a surrogate pair. False when it takes none.
    virtual bool type(std::u16string_view) { return false; }
    /// The focus came by Tab, or left.
    virtual void enteredByTab() {}
    virtual void focusLost() {}

protected:
    [[nodiscard]] HeadlessWindow *window() const { return window_; }
    template <class... Parameters, class... Arguments>
    void deliver(const std::function<void(Parameters...)> &handler, Arguments &&...arguments) {
        controls::deliver(handler, where(), observer(), std::forward<Arguments>(arguments)...);
    }

private:
    [[nodiscard]] std::u16string where() const;
    [[nodiscard]] controls::ErrorObserver observer() const;

    HeadlessWindow *window_;
    ControlDesign design_;
    bool enabled_;
    bool visible_;
};

} // namespace kvex::headless

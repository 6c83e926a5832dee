// What every lightweight control has.
#pragma once

#include "adapters/controls/EventDelivery.h"
#include "adapters/controls/Keys.h"
#include "platform/controls/Control.h"
#include "platform/controls/WindowDesign.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace kvex::lightweight {

using controls::Key;

class LightWindow;

/// A control as its window and the user see it.
class Element {
public:
    /// `window` is null for an element outside any window.
    Element(LightWindow *window, ControlDesign design);
    virtual ~Element() = default;
    Element(const Element &) = delete;
    Element &operator=(const Element &) = delete;

    [[nodiscard]] const ControlDesign &design() const { return design_; }
    [[nodiscard]] bool isEnabled() const { return enabled_; }
    void enable(bool enabled);
    [[nodiscard]] bool isVisible() const { return visible_; }
    void reveal(bool visible);
    [[nodiscard]] bool isUsable() const { return enabled_ && visible_; }
    [[nodiscard]] bool hasFocus() const;
    /// Fails with invalidCall if the element cannot have the focus.
    void takeFocus();

    /// Whether controls of this kind can have the focus.
    [[nodiscard]] virtual bool takesFocus() const { return true; }
    /// Whether Tab stops here while the element is usable.
    [[nodiscard]] virtual bool isTabStop() const { return takesFocus(); }
    /// The caption that names the access key.
    [[nodiscard]] virtual std::u16string_view accessCaption() const { return {}; }

    /// What the user should know about the element: what it waits for while it is disabled.
    [[nodiscard]] virtual std::u16string status() const {
        return enabled_ ? std::u16string() : design_.disabledHint;
    }
    /// The status after the caption: "Add: Type a word first". "" if there is no status.
    [[nodiscard]] std::u16string namedStatus() const;

    /// These are the user's actions on a usable element.
    virtual void click() {}
    /// Returns false to leave the key to the window.
    virtual bool press(Key) { return false; }
    /// The user types a character, which may be a cluster. Returns false if the element takes no
    /// text.
    virtual bool type(std::u16string_view) { return false; }
    /// Whether Key::paste inserts the clipboard's text.
    [[nodiscard]] virtual bool takesPaste() const { return false; }
    /// Tab brought the focus here.
    virtual void enteredByTab() {}
    virtual void focusLost() {}

protected:
    [[nodiscard]] LightWindow *window() const { return window_; }
    /// Call it after a change that the user can see.
    void tellChange();
    template <class... Parameters, class... Arguments>
    void deliver(const std::function<void(Parameters...)> &handler, Arguments &&...arguments) {
        if (handler) {
            controls::deliver(handler, where(), observer(), std::forward<Arguments>(arguments)...);
        }
    }

private:
    [[nodiscard]] std::u16string where() const;
    [[nodiscard]] controls::ErrorObserver observer() const;

    LightWindow *window_;
    ControlDesign design_;
    bool enabled_;
    bool visible_;
};

/// Adds to an element what code sees: the interface `Kind`.
template <class Kind, class Part = Element> class LightControl : public Kind, public Part {
public:
    /// `kindArguments` go to the constructor of `Kind`.
    template <class... KindArguments>
    LightControl(LightWindow *window, const ControlDesign &design, KindArguments... kindArguments)
        : Kind(kindArguments...), Part(window, design) {}

    [[nodiscard]] const std::u16string &name() const final { return this->design().name; }
    [[nodiscard]] bool enabled() const final { return this->isEnabled(); }
    void setEnabled(bool enabled) final { this->enable(enabled); }
    [[nodiscard]] bool visible() const final { return this->isVisible(); }
    void setVisible(bool visible) final { this->reveal(visible); }
    void setFocus() final { this->takeFocus(); }
    void refresh() final { this->tellChange(); }
};

/// A control whose caption can change.
template <class Kind> class LightCaptioned : public LightControl<Kind> {
public:
    LightCaptioned(LightWindow *window, const ControlDesign &design)
        : LightControl<Kind>(window, design), caption_(design.caption) {}

    [[nodiscard]] std::u16string caption() const final { return caption_; }
    void setCaption(const std::u16string &caption) final {
        caption_ = caption;
        this->tellChange();
    }
    [[nodiscard]] std::u16string_view accessCaption() const final { return caption_; }

private:
    std::u16string caption_;
};

} // namespace kvex::lightweight

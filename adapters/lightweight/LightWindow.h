// A window without widgets of a window system: its controls, its focus and its keys. A toolkit
// derives from it.
#pragma once

#include "adapters/lightweight/LightClipboard.h"
#include "adapters/lightweight/LightControl.h"
#include "platform/controls/Window.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::lightweight {

class LightWindow : public Window {
public:
    explicit LightWindow(const WindowDesign &design);

    [[nodiscard]] const std::u16string &name() const { return name_; }
    [[nodiscard]] std::u16string caption() const override { return caption_; }
    void setCaption(const std::u16string &caption) override { caption_ = caption; }
    void showModal() override;
    void close() override;
    [[nodiscard]] bool isOpen() const { return state_ == State::shown; }

    /// The clipboard for cut, copy and paste.
    [[nodiscard]] virtual LightClipboard &clipboard() = 0;
    /// Learns of the errors that left a handler.
    [[nodiscard]] virtual controls::ErrorObserver errorObserver() = 0;
    /// The element looks other than before: code or the user has changed it, or it has got or lost
    /// the focus. It may be in the middle of the change, so only note that it changed.
    virtual void elementChanged(Element & /*element*/) {}
    /// The time of the user's last action, by which a pause in typing counts.
    [[nodiscard]] virtual std::chrono::steady_clock::time_point now() const {
        return std::chrono::steady_clock::now();
    }

    /// In the design's order.
    [[nodiscard]] const std::vector<std::unique_ptr<Element>> &elements() const {
        return elements_;
    }
    /// Null if no element has the name.
    [[nodiscard]] Element *element(std::u16string_view name) const;

    /// Null if no element has the focus.
    [[nodiscard]] Element *focus() const { return focus_; }
    void setFocus(Element *element);
    /// Call it when an element may have become unusable. If the focus is there, it goes back to the
    /// element that had it before. If that one is unusable, it goes to the next tab stop.
    void passFocusOn();
    [[nodiscard]] std::vector<Element *> tabStops() const;
    /// The usable button that Enter presses: the focused button, or else the default button; null
    /// if there is none.
    [[nodiscard]] Element *buttonOfEnter() const;

    /// The element whose status the user should know now: the focused one. If that has none, it is
    /// the disabled default button, or the next disabled control. Null if no status helps.
    [[nodiscard]] const Element *elementToExplain() const;

    /// The focused element gets the key first. Otherwise Tab and the arrows move the focus, and
    /// Enter and Esc press their buttons. Ctrl with Up or Down differs from Up and Down only in a
    /// list.
    void press(Key key);
    /// The user types a character, which may be a cluster. Returns false if the focused element
    /// takes no text.
    bool type(std::u16string_view cluster);
    /// The user pastes a text from outside. It becomes the clipboard's text, so that the same
    /// filters ask for it. Returns false if the focused element takes no text.
    bool paste(std::u16string text);
    /// The user presses Alt and the key. The control with this access key takes the focus and is
    /// clicked. A label's key only focuses its buddy. If several controls have the key, the next
    /// one after the focus only takes the focus. Returns false if none has it.
    bool pressAccessKey(char16_t key);

protected:
    /// Shows the window, and returns when it is closed.
    virtual void run() = 0;

private:
    enum class State { fresh, shown, closed };

    [[nodiscard]] Control *find(std::u16string_view name) override;
    /// In the design's order; behind all elements for null.
    [[nodiscard]] std::size_t placeOf(const Element *element) const;
    [[nodiscard]] Element *nextTabStop(const Element *from, bool forward) const;
    [[nodiscard]] Element *targetOf(const Element &element, char16_t accessKey) const;
    /// Null if no control has this role.
    [[nodiscard]] Element *elementOf(bool ControlDesign::*role) const;
    [[nodiscard]] Element *buttonOf(bool ControlDesign::*role) const;
    void walk(bool forward);

    std::u16string name_;
    std::u16string caption_;
    std::vector<std::unique_ptr<Element>> elements_;
    Element *focus_ = nullptr;
    /// The element that had the focus before.
    Element *previousFocus_ = nullptr;
    State state_ = State::fresh;
    bool showCalled_ = false;
};

} // namespace kvex::lightweight

// A window without a screen, with its controls and its focus.
#pragma once

#include "adapters/headless/HeadlessControl.h"
#include "adapters/headless/HeadlessToolkit.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::headless {

class HeadlessWindow final : public Window {
public:
    HeadlessWindow(HeadlessToolkit &toolkit, const WindowDesign &design);

    [[nodiscard]] const std::u16string &name() const { return name_; }
    [[nodiscard]] std::u16string caption() const override { return caption_; }
    void setCaption(const std::u16string &caption) override { caption_ = caption; }
    void showModal() override;
    void close() override;
    [[nodiscard]] bool isOpen() const { return state_ == State::shown; }

    [[nodiscard]] HeadlessToolkit &toolkit() { return toolkit_; }
    [[nodiscard]] HeadlessClipboard &clipboard() { return toolkit_.clipboard(); }
    [[nodiscard]] controls::ErrorObserver errorObserver();

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
    /// The focused element gets the key first. Otherwise Tab moves the focus, and Enter and Esc
    /// press their buttons.
    void press(Key key);
    /// The user presses Alt and the key. The control with this access key takes the focus and is
    /// clicked. A label's key only focuses its buddy. If several controls have the key, the next
    /// one after the focus only takes the focus. Returns false if none has it.
    bool pressAccessKey(char16_t key);

private:
    enum class State { fresh, shown, closed };

    [[nodiscard]] Control *find(std::u16string_view name) override;
    [[nodiscard]] std::size_t placeOf(const Element *element) const;
    [[nodiscard]] Element *nextTabStop(const Element *from, bool forward) const;
    [[nodiscard]] Element *targetOf(const Element &element, char16_t accessKey) const;
    void pressButton(bool ControlDesign::*role);

    HeadlessToolkit &toolkit_;
    std::u16string name_;
    std::u16string caption_;
    std::vector<std::unique_ptr<Element>> elements_;
    Element *focus_ = nullptr;
    /// The element that had the focus before.
    Element *previousFocus_ = nullptr;
    State state_ = State::fresh;
    bool showCalled_ = false;
};

} // namespace kvex::headless

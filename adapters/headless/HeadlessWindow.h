// A window without a screen: its controls, its focus, its life.
#pragma once

#include "adapters/headless/Element.h"
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
    /// Null when there is none of the name.
    [[nodiscard]] Element *element(std::u16string_view name) const;

    /// Null when none has it.
    [[nodiscard]] Element *focus() const { return focus_; }
    void setFocus(Element *element);
    /// To be called when an element may have become unusable: an unusable one passes the focus
    /// back to the one that had it before or, when that cannot take it, on to the next in tab
    /// order.
    void passFocusOn();
    [[nodiscard]] std::vector<Element *> tabStops() const;
    /// To the focus, else to the window: Tab moves the focus, Enter and Esc press their buttons.
    void press(Key key);
    /// Whom Alt and the key lead to: the one control, or, when several have the key, the next one
    /// after the focus, which then only takes the focus. False when none has the key.
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
    /// Had the focus before.
    Element *previousFocus_ = nullptr;
    State state_ = State::fresh;
    bool showCalled_ = false;
};

} // namespace kvex::headless

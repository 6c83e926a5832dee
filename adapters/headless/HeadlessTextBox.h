// A text that the user edits, and the box of one line.
#pragma once

#include "adapters/headless/HeadlessControl.h"
#include "platform/controls/TextBox.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kvex::headless {

/// Caret, selection and clipboard of a text that the user edits.
class TextInput : public Element {
public:
    TextInput(HeadlessWindow *window, const ControlDesign &design) : Element(window, design) {}

    /// Moves the caret, selects all, deletes, or uses the clipboard. Inserts a blank for
    /// Key::space.
    bool press(Key key) override;
    bool type(std::u16string_view character) override;

protected:
    [[nodiscard]] const std::u16string &content() const { return text_; }
    [[nodiscard]] std::size_t caret() const { return caret_; }
    /// Every change of the text comes through here. Replaces `length` units at `from` by `with`,
    /// puts the caret after it, and clears the selection.
    void replace(std::size_t from, std::size_t length, std::u16string_view with);
    /// Typed and pasted text replaces the selection.
    void replaceSelection(std::u16string_view with);

    /// Called by replace() after the text changed and before changed().
    virtual void replaced(std::size_t, std::size_t, std::size_t) {}
    /// Called if the new text differs from the old one.
    virtual void changed() = 0;
    /// Whether the key with this character code may take effect.
    virtual bool passes(char16_t) { return true; }
    /// The part of a clipboard text that can be pasted, before the limit cuts it.
    [[nodiscard]] virtual std::u16string pasteable(std::u16string_view text) const = 0;
    /// The longest text that typing and pasting can make.
    [[nodiscard]] virtual std::size_t limit() const = 0;

private:
    struct Range {
        std::size_t from;
        std::size_t length;
    };
    [[nodiscard]] Range selection() const;
    [[nodiscard]] std::size_t room() const;
    void erase(Key key);
    void useClipboard(Key key);
    void moveCaret(Key key);

    std::u16string text_;
    std::size_t caret_ = 0;
    /// Where the selection began. Equals the caret if nothing is selected.
    std::size_t anchor_ = 0;
};

class HeadlessTextBox final : public HeadlessControl<TextBox, TextInput> {
public:
    HeadlessTextBox(HeadlessWindow *window, const ControlDesign &design);

    [[nodiscard]] std::u16string text() const override { return content(); }
    void setText(const std::u16string &text) override { replace(0, content().size(), text); }

private:
    void changed() override { deliver(onChange); }
    bool passes(char16_t keyCode) override;
    [[nodiscard]] std::u16string pasteable(std::u16string_view text) const override;
    [[nodiscard]] std::size_t limit() const override;
};

} // namespace kvex::headless

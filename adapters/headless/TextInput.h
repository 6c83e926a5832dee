// A text that the user edits: caret, selection, clipboard.
#pragma once

#include "adapters/headless/Element.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kvex::headless {

class TextInput : public Element {
public:
    TextInput(HeadlessWindow *window, const ControlDesign &design) : Element(window, design) {}

    /// With an editable text it deletes, or works on the clipboard.
    bool press(Key key) override;
    bool type(std::u16string_view character) override;

protected:
    [[nodiscard]] const std::u16string &content() const { return text_; }
    [[nodiscard]] std::size_t caret() const { return caret_; }
    /// Whoever changes the text comes through here: `with` takes the place of `length` units
    /// from `from` on, the caret comes to stand behind it, nothing is selected.
    void replace(std::size_t from, std::size_t length, std::u16string_view with);
    /// What the user types or pastes takes the place of what is selected.
    void replaceSelection(std::u16string_view with);

    /// replace(), after the text changed and before anybody is told.
    virtual void replaced(std::size_t, std::size_t, std::size_t) {}
    /// The text is another.
    virtual void changed() = 0;
    /// Whether the key with this character code may have its effect.
    virtual bool passes(char16_t) { return true; }
    /// What of a text on the clipboard can be pasted, as far as there is room.
    [[nodiscard]] virtual std::u16string pasteable(std::u16string_view text) const = 0;
    /// How long the text may become by typing and pasting.
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
    /// Where the selection began; equal to the caret when nothing is selected.
    std::size_t anchor_ = 0;
};

} // namespace kvex::headless

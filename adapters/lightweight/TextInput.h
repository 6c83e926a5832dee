// A text that the user edits.
#pragma once

#include "adapters/lightweight/LightControl.h"
#include "adapters/lightweight/TextPlaces.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::lightweight {

/// Caret, selection and clipboard of a text that the user edits. The caret goes by clusters.
/// Backspace deletes one character of a cluster, as a wrong vowel sign, and Delete a whole one.
class TextInput : public Element {
public:
    struct Range {
        std::size_t from;
        std::size_t length;
        friend bool operator==(const Range &, const Range &) = default;
    };
    /// The line that holds a place of the text.
    using LineFinder = std::function<TextLine(std::size_t at)>;

    TextInput(LightWindow *window, const ControlDesign &design) : Element(window, design) {}

    [[nodiscard]] const std::u16string &content() const { return text_; }
    [[nodiscard]] std::size_t caret() const { return caret_; }
    [[nodiscard]] Range selection() const;
    /// A click into the text. It clears the selection, or ends it here.
    void setCaret(std::size_t at, bool selects = false);

    /// Up, Down, Home and End follow the lines that the view shows. Without a finder, only CR LF
    /// breaks lines. A box of one line needs none.
    void setLineFinder(LineFinder finder) { lineFinder_ = std::move(finder); }
    /// The lines that Page Up and Page Down go.
    void setPage(int lines) { page_ = lines; }

    /// Moves the caret, selects, deletes, or uses the clipboard. Inserts a blank for Key::space.
    bool press(Key key) override;
    bool type(std::u16string_view cluster) override;
    [[nodiscard]] bool takesPaste() const override { return true; }

protected:
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
    [[nodiscard]] virtual bool hasLines() const = 0;

private:
    [[nodiscard]] std::size_t room() const;
    [[nodiscard]] TextLine line(std::size_t at) const;
    [[nodiscard]] std::optional<std::size_t> placeAfter(Key key) const;
    [[nodiscard]] int column() const;
    [[nodiscard]] std::size_t linesAway(int lines) const;
    void erase(Key key);
    void useClipboard(Key key);
    bool moveBy(Key key);

    std::u16string text_;
    std::size_t caret_ = 0;
    /// Where the selection began. Equals the caret if nothing is selected.
    std::size_t anchor_ = 0;
    /// The column to which Up and Down return after shorter lines.
    std::optional<int> column_;
    LineFinder lineFinder_;
    int page_ = 1;
};

} // namespace kvex::lightweight

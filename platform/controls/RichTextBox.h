// Text of many lines, its parts in colours. Lines end in CR LF, in text() and in what is set.
#pragma once

#include "platform/TextRun.h"
#include "platform/controls/Control.h"

#include <functional>
#include <string>
#include <vector>

namespace kvex {

class RichTextBox : public Control {
public:
    /// The text changed, by the user or by code (only when it is another text).
    std::function<void()> onChange;

    [[nodiscard]] virtual std::u16string text() const = 0;
    /// The text in pieces, neighbours of one colour joined, in the colours that were set, whatever
    /// the theme makes of them.
    [[nodiscard]] virtual std::vector<TextRun> runs() const = 0;
    /// Replaces the whole text and puts the caret at its end; in a read-only box the view stays at
    /// its beginning. A lone CR or LF in `text` is a line break, too. The text is black, which is
    /// the theme's text colour.
    virtual void setText(const std::u16string &text) = 0;
    /// The same with the pieces one behind the other, in one change. Toolkits keep a colour's
    /// meaning and give it a contrast of at least 4.5 to 1 on the theme's background.
    virtual void setRuns(const std::vector<TextRun> &runs) = 0;
};

} // namespace kvex

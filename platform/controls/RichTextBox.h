// Text of several lines in colours. Every line break in text() and runs() is CR LF.
#pragma once

#include "platform/TextRun.h"
#include "platform/controls/Control.h"

#include <functional>
#include <string>
#include <vector>

namespace kvex {

class RichTextBox : public Control {
public:
    /// The user or code changed the text. Setting an equal text does not count.
    std::function<void()> onChange;

    [[nodiscard]] virtual std::u16string text() const = 0;
    /// The text in pieces, in the colours that were set, not in those that the theme draws.
    /// Adjacent pieces of one colour are joined.
    [[nodiscard]] virtual std::vector<TextRun> runs() const = 0;
    /// Replaces the whole text and puts the caret at its end. A read-only box shows the beginning.
    /// A lone CR or LF is a line break too. The text is black, which means the theme's text colour.
    virtual void setText(const std::u16string &text) = 0;
    /// The same for a text in coloured pieces, as one change. Toolkits may adapt a colour to reach
    /// a contrast of at least 4.5 to 1 on the theme's background.
    virtual void setRuns(const std::vector<TextRun> &runs) = 0;
};

} // namespace kvex

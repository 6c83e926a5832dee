#include "adapters/lightweight/LightRichTextBox.h"

#include "platform/LineBreaks.h"

#include <limits>

namespace kvex::lightweight {

void LightRichTextBox::setText(const std::u16string &text) {
    replace(0, content().size(), withCrLf(text));
    placeCaret();
}

void LightRichTextBox::setRuns(const std::vector<TextRun> &runs) {
    std::size_t length = 0;
    for (const TextRun &run : runs) {
        length += run.text.size();
    }
    std::u16string whole;
    whole.reserve(length);
    coming_.reserve(length);
    for (const TextRun &run : runs) {
        appendWithCrLf(whole, run.text);
        coming_.resize(whole.size(), run.colour);
    }
    replace(0, content().size(), whole);
    placeCaret();
}

/// A box to read stays at its beginning.
void LightRichTextBox::placeCaret() {
    if (design().readOnly) {
        setCaret(0);
    }
}

bool LightRichTextBox::press(Key key) {
    if (key == Key::enter && !design().readOnly) {
        replaceSelection(u"\r\n");
        return true;
    }
    return TextInput::press(key);
}

void LightRichTextBox::replaced(std::size_t from, std::size_t length, std::size_t added) {
    coming_.resize(added, colour::black);
    if (length == colours_.size()) {
        colours_.swap(coming_);
    } else {
        const auto at = colours_.begin() + static_cast<std::ptrdiff_t>(from);
        colours_.insert(colours_.erase(at, at + static_cast<std::ptrdiff_t>(length)),
                        coming_.begin(), coming_.end());
    }
    coming_.clear();
}

std::u16string LightRichTextBox::pasteable(std::u16string_view text) const {
    return withCrLf(std::u16string(text));
}

std::size_t LightRichTextBox::limit() const {
    return std::numeric_limits<std::size_t>::max();
}

std::vector<TextRun> LightRichTextBox::runs() const {
    std::vector<TextRun> result;
    for (std::size_t at = 0; at < colours_.size(); ++at) {
        if (result.empty() || result.back().colour != colours_[at]) {
            result.push_back({{}, colours_[at]});
        }
        result.back().text.push_back(content()[at]);
    }
    return result;
}

} // namespace kvex::lightweight

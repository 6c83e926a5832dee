// A clipboard of the program's own.
#pragma once

#include "platform/Clipboard.h"

#include <string>
#include <utility>

namespace kvex::lightweight {

class LightClipboard : public Clipboard {
public:
    /// The user cuts or copies the text. A toolkit may pass it on.
    virtual void copy(std::u16string text) { setText(std::move(text)); }
    void setText(std::u16string text) { text_ = std::move(text); }
    void clear() { text_.clear(); }
    [[nodiscard]] bool hasText() const override { return !text_.empty(); }
    [[nodiscard]] std::u16string text() const override { return text_; }

private:
    std::u16string text_;
};

} // namespace kvex::lightweight

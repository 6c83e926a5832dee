// A box of several lines in colours.
#pragma once

#include "adapters/lightweight/LightControl.h"
#include "adapters/lightweight/TextInput.h"
#include "platform/controls/RichTextBox.h"

namespace kvex::lightweight {

class LightRichTextBox final : public LightControl<RichTextBox, TextInput> {
public:
    using LightControl::LightControl;

    [[nodiscard]] std::u16string text() const override { return content(); }
    [[nodiscard]] std::vector<TextRun> runs() const override;
    /// The colour of each unit of the text.
    [[nodiscard]] const std::vector<Colour> &colours() const { return colours_; }
    void setText(const std::u16string &text) override;
    void setRuns(const std::vector<TextRun> &runs) override;

    bool press(Key key) override;

private:
    void replaced(std::size_t from, std::size_t length, std::size_t added) override;
    void changed() override { deliver(onChange); }
    [[nodiscard]] std::u16string pasteable(std::u16string_view text) const override;
    [[nodiscard]] std::size_t limit() const override;
    [[nodiscard]] bool hasLines() const override { return true; }
    void placeCaret();

    std::vector<Colour> colours_;
    /// The colours of a text while it is being set. Typed text is black.
    std::vector<Colour> coming_;
};

} // namespace kvex::lightweight

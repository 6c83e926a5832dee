// A line of text.
#pragma once

#include "adapters/headless/HeadlessControl.h"
#include "adapters/headless/TextInput.h"
#include "platform/controls/TextBox.h"

namespace kvex::headless {

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

// The box of one line.
#pragma once

#include "adapters/lightweight/LightControl.h"
#include "adapters/lightweight/TextInput.h"
#include "platform/controls/TextBox.h"

namespace kvex::lightweight {

class LightTextBox final : public LightControl<TextBox, TextInput> {
public:
    LightTextBox(LightWindow *window, const ControlDesign &design);

    [[nodiscard]] std::u16string text() const override { return content(); }
    void setText(const std::u16string &text) override { replace(0, content().size(), text); }

private:
    void changed() override { deliver(onChange); }
    bool passes(char16_t keyCode) override;
    [[nodiscard]] std::u16string pasteable(std::u16string_view text) const override;
    [[nodiscard]] std::size_t limit() const override;
    [[nodiscard]] bool hasLines() const override { return false; }
};

} // namespace kvex::lightweight

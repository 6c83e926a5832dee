// A rich text box.
#pragma once

#include "adapters/qt/ControlWidget.h"
#include "adapters/qt/TextView.h"
#include "platform/controls/RichTextBox.h"

namespace kvex::qt {

class QtRichTextBox final : public WidgetControl<RichTextBox, TextView> {
public:
    QtRichTextBox(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] std::u16string text() const override { return shown().content(); }
    [[nodiscard]] std::vector<TextRun> runs() const override { return shown().runs(); }
    void setText(const std::u16string &text) override;
    void setRuns(const std::vector<TextRun> &runs) override;

private:
    void textMayHaveChanged();

    /// What the last change event told of.
    std::u16string told_;
};

} // namespace kvex::qt

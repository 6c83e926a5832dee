// The toolkit that shows windows on a screen, by Qt Widgets.
#pragma once

#include "platform/controls/Toolkit.h"

namespace kvex::qt {

class QtClipboard final : public Clipboard {
public:
    /// No text while the process has no application that could show windows.
    [[nodiscard]] bool hasText() const override;
    [[nodiscard]] std::u16string text() const override;
};

/// The first window or message box makes the process's QApplication where the host has none; it
/// then stays. Windows are shown from the application's thread alone.
class QtToolkit final : public Toolkit {
public:
    [[nodiscard]] std::unique_ptr<Window> createWindow(const WindowDesign &design) override;
    std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                                std::int32_t style) override;
    [[nodiscard]] Clipboard &clipboard() override { return clipboard_; }

private:
    QtClipboard clipboard_;
};

} // namespace kvex::qt

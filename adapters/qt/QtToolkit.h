// The toolkit that shows windows on a screen, with Qt Widgets.
#pragma once

#include "platform/controls/Toolkit.h"

namespace kvex::qt {

class QtClipboard final : public Clipboard {
public:
    /// Returns false while the process has no application that can show windows.
    [[nodiscard]] bool hasText() const override;
    [[nodiscard]] std::u16string text() const override;
};

/// The first window or message box creates the process's QApplication unless the host has one. The
/// application then stays. Only its thread can show windows.
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

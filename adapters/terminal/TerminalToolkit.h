// The toolkit that shows windows in a terminal.
#pragma once

#include "adapters/terminal/Desktop.h"
#include "platform/OwnerThread.h"
#include "platform/controls/Toolkit.h"

#include <mutex>
#include <optional>

namespace kvex::terminal {

/// A toolkit has one terminal. While windows exist, they belong to the thread that made the first
/// one. The clipboard is the toolkit's own.
class TerminalToolkit final : public Toolkit {
public:
    /// The device must outlive the toolkit. The first window looks the terminal up.
    TerminalToolkit(Device &device, TerminalKind kind) : device_(device), kind_(std::move(kind)) {}

    [[nodiscard]] std::unique_ptr<Window> createWindow(const WindowDesign &design) override;
    std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                                std::int32_t style) override;
    [[nodiscard]] lightweight::LightClipboard &clipboard() override { return clipboard_; }

    /// Fails with cannotCreateObject if the terminal cannot show windows.
    [[nodiscard]] Desktop &desktop();

private:
    /// For a thread that holds the lock until its window counts, so that no other thread makes one
    /// meanwhile.
    [[nodiscard]] Desktop &lockedDesktop();
    /// Fails with invalidCall while the windows of another thread exist.
    void requireThread();
    void showRefusal(const Error &error);

    Device &device_;
    TerminalKind kind_;
    lightweight::LightClipboard clipboard_;
    std::mutex mutex_;
    std::optional<OwnerThread> owner_;
    std::unique_ptr<Desktop> desktop_;
};

} // namespace kvex::terminal

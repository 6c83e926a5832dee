// The rules window on Qt. The rule editor that opens over it is not shown.
#pragma once

#include "adapters/headless/HeadlessToolkit.h"
#include "adapters/qt/QtToolkit.h"
#include "bench/support/BenchSession.h"

#include <functional>
#include <string>

namespace kvex::bench {

/// Shows Qt's windows, but opens the rule editor on the headless toolkit and cancels it at once.
class WithoutEditor final : public Toolkit {
public:
    [[nodiscard]] std::unique_ptr<Window> createWindow(const WindowDesign &design) override;
    std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                                std::int32_t style) override;
    [[nodiscard]] Clipboard &clipboard() override { return qt_.clipboard(); }

private:
    qt::QtToolkit qt_;
    headless::HeadlessToolkit hidden_;
};

/// A session with Qt's windows.
class QtSession {
public:
    explicit QtSession(std::u16string connectionString)
        : session_(std::move(connectionString), toolkit_) {}

    void open() { session_.open(); }
    /// Shows the rules window of the open session. `play` runs when its list is first painted, and
    /// must close the window.
    void showRulesWindow(const std::function<void()> &play);
    /// Opens the session first.
    void openAndShowRulesWindow(const std::function<void()> &play);

private:
    WithoutEditor toolkit_;
    BenchSession session_;
};

} // namespace kvex::bench

// The rules window on Qt, without the rule editor that opens over it.
#pragma once

#include "adapters/headless/HeadlessToolkit.h"
#include "adapters/qt/QtToolkit.h"
#include "bench/support/BenchSession.h"

#include <functional>
#include <string>

namespace kvex::bench {

/// Qt's windows; a rule editor is cancelled at once, where nobody sees it.
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

/// A session whose windows Qt shows.
class QtSession {
public:
    explicit QtSession(std::u16string connectionString)
        : session_(std::move(connectionString), toolkit_) {}

    void open() { session_.open(); }
    /// The rules window on the open session, until `play`, which runs once its list was painted,
    /// closes it.
    void showRulesWindow(const std::function<void()> &play);
    /// The same with the opening of the session.
    void openAndShowRulesWindow(const std::function<void()> &play);

private:
    WithoutEditor toolkit_;
    BenchSession session_;
};

} // namespace kvex::bench

// A window without a screen.
#pragma once

#include "adapters/headless/HeadlessToolkit.h"
#include "adapters/lightweight/LightWindow.h"

namespace kvex::headless {

class HeadlessWindow final : public lightweight::LightWindow {
public:
    HeadlessWindow(HeadlessToolkit &toolkit, const WindowDesign &design)
        : LightWindow(design), toolkit_(toolkit) {}

    [[nodiscard]] HeadlessToolkit &toolkit() { return toolkit_; }
    [[nodiscard]] lightweight::LightClipboard &clipboard() override { return toolkit_.clipboard(); }
    [[nodiscard]] controls::ErrorObserver errorObserver() override;
    /// Time stands still, so that a script that plays slowly does what a quick one does.
    [[nodiscard]] std::chrono::steady_clock::time_point now() const override { return {}; }

private:
    void run() override { toolkit_.play(*this); }

    HeadlessToolkit &toolkit_;
};

} // namespace kvex::headless

// A window of lightweight controls that a test plays with, key by key.
#pragma once

#include "adapters/lightweight/LightWindow.h"
#include "tests/toolkit/Designs.h"

#include <chrono>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace kvex::lightweight {

class TestWindow final : public LightWindow {
public:
    explicit TestWindow(std::vector<ControlDesign> controls)
        : LightWindow({u"frmTest", u"Test", std::move(controls), {}}) {
        showModal();
    }

    [[nodiscard]] LightClipboard &clipboard() override { return clipboard_; }
    [[nodiscard]] controls::ErrorObserver errorObserver() override { return {}; }
    void elementChanged(Element &element) override { changed_.insert(element.design().name); }
    [[nodiscard]] std::chrono::steady_clock::time_point now() const override { return now_; }

    void wait(std::chrono::milliseconds time) { now_ += time; }
    /// The names of the elements that changed since the last call.
    [[nodiscard]] std::set<std::u16string> takeChanged() { return std::exchange(changed_, {}); }
    void press(std::initializer_list<Key> keys) {
        for (const Key key : keys) {
            LightWindow::press(key);
        }
    }
    using LightWindow::press;
    [[nodiscard]] std::u16string focused() const {
        return focus() == nullptr ? std::u16string() : focus()->design().name;
    }
    template <class Kind> [[nodiscard]] Kind &the(std::u16string_view name) const {
        return dynamic_cast<Kind &>(*element(name));
    }

private:
    /// The window stays open. The test is its user.
    void run() override {}

    LightClipboard clipboard_;
    std::chrono::steady_clock::time_point now_;
    std::set<std::u16string> changed_;
};

} // namespace kvex::lightweight

// The windows on Qt, for tests of what only Qt has.
#pragma once

#include "adapters/qt/QtToolkit.h"
#include "tests/support/QtPlay.h"
#include "tests/windows/OnScreen.h"

namespace kvex::test {

class QtStage final : public OnScreenStage {
public:
    [[nodiscard]] Toolkit &toolkit() override { return toolkit_; }
    [[nodiscard]] QtPlay &play() { return play_; }
    void whenShown(std::u16string window, OnScreen script) override {
        play_.whenShown(std::move(window), std::move(script));
    }
    [[nodiscard]] std::vector<MessageBox> messageBoxes() const override {
        std::vector<MessageBox> boxes;
        for (const auto &box : play_.messageBoxes()) {
            boxes.push_back({box.title, box.text});
        }
        return boxes;
    }
    [[nodiscard]] std::vector<std::string> problems() const override { return play_.problems(); }
    [[nodiscard]] std::size_t pendingScripts() const override { return play_.pendingScripts(); }
    void setClipboardText(const std::u16string &text) override;

    [[nodiscard]] static std::unique_ptr<OnScreenStage> make() {
        return std::make_unique<QtStage>();
    }

private:
    QtPlay play_;
    qt::QtToolkit toolkit_;
};

[[nodiscard]] inline QtUser &qtUser(OnScreenUser &user) {
    return dynamic_cast<QtUser &>(user);
}

class QtWindowsOnScreen : public OnScreenTest {
protected:
    QtWindowsOnScreen() : OnScreenTest(QtStage::make()) {}

    Toolkit &toolkit = stage->toolkit();
    /// Hides the neutral one: these scripts see widgets.
    QtPlay &play = dynamic_cast<QtStage &>(*stage).play();
};

} // namespace kvex::test

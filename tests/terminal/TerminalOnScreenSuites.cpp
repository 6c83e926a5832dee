#include "tests/addressbook/AddressBookOnScreen.h"
#include "tests/terminal/TerminalPlay.h"
#include "tests/windows/ActionDialogsOnScreen.h"
#include "tests/windows/ConditionsOnScreen.h"
#include "tests/windows/DatesOnScreen.h"
#include "tests/windows/OnScreen.h"

namespace kvex::test {
namespace {

class TerminalStage final : public OnScreenStage {
public:
    [[nodiscard]] Toolkit &toolkit() override { return play_.toolkit(); }
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
    void setClipboardText(const std::u16string &text) override {
        play_.toolkit().clipboard().setText(text);
    }

private:
    TerminalPlay play_;
};

std::unique_ptr<OnScreenStage> makeTerminalStage() {
    return std::make_unique<TerminalStage>();
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Terminal, AddressBookOnScreen, testing::Values(&makeTerminalStage));
INSTANTIATE_TEST_SUITE_P(Terminal, WindowsOnScreen, testing::Values(&makeTerminalStage));
INSTANTIATE_TEST_SUITE_P(Terminal, ConditionsOnScreen, testing::Values(&makeTerminalStage));
INSTANTIATE_TEST_SUITE_P(Terminal, ActionDialogsOnScreen, testing::Values(&makeTerminalStage));
INSTANTIATE_TEST_SUITE_P(Terminal, DatesOnScreen, testing::Values(&makeTerminalStage));

} // namespace kvex::test

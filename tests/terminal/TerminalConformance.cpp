#include "tests/terminal/TerminalPlay.h"
#include "tests/toolkit/Conformance.h"

namespace kvex::test {
namespace {

class TerminalFixture final : public ToolkitFixture {
public:
    [[nodiscard]] Toolkit &toolkit() override { return play_.toolkit(); }

    void show(Window &window, Script script) override {
        play_.whenShown(u"", [script = std::move(script)](TerminalUser &user) {
            script(user);
            user.closeByFrame();
        });
        window.showModal();
    }
    void answerNext(std::int32_t result) override { play_.answerNext(result); }
    void answerNextByEscape() override { play_.answerNextByEscape(); }
    [[nodiscard]] std::vector<MessageBox> messageBoxes() const override {
        std::vector<MessageBox> shown;
        for (const auto &box : play_.messageBoxes()) {
            shown.push_back({box.title, box.text});
        }
        return shown;
    }
    /// The toolkit's clipboard is its own: other programs reach it by pasting only.
    void setClipboardText(const std::u16string &text) override {
        play_.toolkit().clipboard().setText(text);
    }
    [[nodiscard]] std::u16string clipboardText() const override {
        return play_.toolkit().clipboard().text();
    }
    [[nodiscard]] std::string complaints() const override {
        std::string result;
        for (const std::string &problem : play_.problems()) {
            result += problem + '\n';
        }
        return result;
    }

private:
    // clipboard() is not const, since its caller can change the clipboard.
    mutable TerminalPlay play_;
};

std::unique_ptr<ToolkitFixture> makeTerminalFixture() {
    return std::make_unique<TerminalFixture>();
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Terminal, ToolkitConformance, testing::Values(&makeTerminalFixture));

} // namespace kvex::test

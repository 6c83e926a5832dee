#include "tests/toolkit/Conformance.h"

#include "adapters/headless/HeadlessWindow.h"
#include "adapters/headless/User.h"

namespace kvex::test {
namespace {

using headless::User;

class HeadlessHands final : public Hands {
public:
    HeadlessHands(User &user, std::size_t &forgiven) : user_(user), forgiven_(forgiven) {}

    void click(std::u16string_view control) override { user_.click(control); }
    void clickRow(std::u16string_view list, int row) override { user_.clickRow(list, row); }
    void doubleClickRow(std::u16string_view list, int row) override {
        user_.doubleClickRow(list, row);
    }
    void doubleClickBesideRows(std::u16string_view list) override {
        user_.doubleClickBesideRows(list);
    }
    void tickRow(std::u16string_view list, int row) override { user_.tickRow(list, row); }
    void tryToClick(std::u16string_view control) override {
        user_.click(control);
        ++forgiven_;
    }
    void closeByFrame() override { user_.closeByFrame(); }
    void press(Key key) override { user_.press(key); }
    void type(std::u16string_view text) override { user_.type(text); }
    void pressAccessKey(char16_t key) override { user_.pressAccessKey(key); }
    void pickDate(std::u16string_view picker, int year, int month, int day) override {
        user_.pickDate(picker, year, month, day);
    }
    void pickTime(std::u16string_view picker, int hour, int minute, int second) override {
        user_.pickTime(picker, hour, minute, second);
    }
    void tickPicker(std::u16string_view picker, bool ticked) override {
        user_.tickPicker(picker, ticked);
    }
    [[nodiscard]] std::u16string focused() const override { return user_.focused(); }
    [[nodiscard]] std::u16string description(std::u16string_view control) const override {
        return user_.description(control);
    }
    [[nodiscard]] bool isOpen() const override { return user_.isOpen(); }

private:
    User &user_;
    std::size_t &forgiven_;
};

class HeadlessFixture final : public ToolkitFixture {
public:
    [[nodiscard]] Toolkit &toolkit() override { return toolkit_; }

    void show(Window &window, Script script) override {
        toolkit_.whenShown(dynamic_cast<headless::HeadlessWindow &>(window).name(),
                           [&](User &user) {
                               HeadlessHands hands(user, forgiven_);
                               script(hands);
                               if (user.isOpen()) {
                                   user.closeByFrame();
                               }
                           });
        window.showModal();
    }
    void answerNext(std::int32_t result) override { toolkit_.answerNext(result); }
    /// Esc gives the same answer as a test that sets none.
    void answerNextByEscape() override {}
    [[nodiscard]] std::vector<MessageBox> messageBoxes() const override {
        std::vector<MessageBox> shown;
        for (const auto &box : toolkit_.messageBoxes()) {
            shown.push_back({box.title, box.text});
        }
        return shown;
    }
    void setClipboardText(const std::u16string &text) override {
        toolkit_.clipboard().setText(text);
    }
    [[nodiscard]] std::u16string clipboardText() const override {
        return toolkit_.clipboard().text();
    }
    /// Each click on a disabled control must be reported as a problem, and nothing else may be.
    [[nodiscard]] std::string complaints() const override {
        std::string result;
        for (const std::string &problem : toolkit_.problems()) {
            result += problem + '\n';
        }
        return toolkit_.problems().size() == forgiven_ ? std::string() : result;
    }

private:
    // clipboard() is not const, since its caller can change the clipboard.
    mutable headless::HeadlessToolkit toolkit_;
    std::size_t forgiven_ = 0;
};

std::unique_ptr<ToolkitFixture> makeHeadlessFixture() {
    return std::make_unique<HeadlessFixture>();
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Headless, ToolkitConformance, testing::Values(&makeHeadlessFixture));

} // namespace kvex::test

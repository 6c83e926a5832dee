#include "tests/toolkit/Conformance.h"

#include "adapters/qt/QText.h"
#include "adapters/qt/QtToolkit.h"
#include "tests/support/QtPlay.h"

#include <QClipboard>
#include <QGuiApplication>

namespace kvex::test {
namespace {

class QtFixture final : public ToolkitFixture {
public:
    QtFixture() { QGuiApplication::clipboard()->clear(); }

    [[nodiscard]] Toolkit &toolkit() override { return toolkit_; }

    void show(Window &window, Script script) override {
        play_.whenShown(u"", [script = std::move(script)](QtUser &user) {
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
    void setClipboardText(const std::u16string &text) override {
        QGuiApplication::clipboard()->setText(qt::toQt(text));
    }
    [[nodiscard]] std::u16string clipboardText() const override {
        return qt::fromQt(QGuiApplication::clipboard()->text());
    }
    [[nodiscard]] std::string complaints() const override {
        std::string result;
        for (const std::string &problem : play_.problems()) {
            result += problem + '\n';
        }
        return result;
    }

private:
    QtPlay play_;
    qt::QtToolkit toolkit_;
};

std::unique_ptr<ToolkitFixture> makeQtFixture() {
    return std::make_unique<QtFixture>();
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Qt, ToolkitConformance, testing::Values(&makeQtFixture));

} // namespace kvex::test

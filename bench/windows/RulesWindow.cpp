#include "bench/windows/RulesWindow.h"

#include "bench/windows/Painting.h"
#include "ui/rules/frmRules.h"

namespace kvex::bench {
namespace {

/// Runs `play` at the first painting of the list.
class FirstPainting {
public:
    explicit FirstPainting(std::function<void()> play) : play_(std::move(play)) {}

private:
    std::function<void()> play_;
    Painting painting_{QStringLiteral("lvwRules"), [this] {
                           if (const auto play = std::exchange(play_, nullptr)) {
                               play();
                           }
                       }};
};

} // namespace

std::unique_ptr<Window> WithoutEditor::createWindow(const WindowDesign &design) {
    if (design.name != u"frmRuleEdit") {
        return qt_.createWindow(design);
    }
    hidden_.whenShown(design.name, [](test::User &editor) { editor.press(test::Key::escape); });
    return hidden_.createWindow(design);
}

std::int32_t WithoutEditor::showMessageBox(const std::u16string &title, const std::u16string &text,
                                           std::int32_t style) {
    return qt_.showMessageBox(title, text, style);
}

void QtSession::showRulesWindow(const std::function<void()> &play) {
    const FirstPainting painting(play);
    frmRules().Show();
}

void QtSession::openAndShowRulesWindow(const std::function<void()> &play) {
    const FirstPainting painting(play);
    session_.showRules();
}

} // namespace kvex::bench

#include "adapters/headless/HeadlessToolkit.h"

#include "adapters/controls/DesignCheck.h"
#include "adapters/headless/HeadlessWindow.h"
#include "adapters/headless/User.h"
#include "platform/Text.h"

namespace kvex::headless {
namespace {

bool answers(std::int32_t style, std::int32_t result) {
    return style == message_box::yesNo ? result == message_box::yes || result == message_box::no
                                       : result == message_box::ok;
}

} // namespace

void HeadlessToolkit::whenShown(std::u16string window, Script script) {
    scripts_.push_back({std::move(window), std::move(script)});
}

void HeadlessToolkit::whenAnyShown(Script script) {
    anyScript_ = std::move(script);
}

void HeadlessToolkit::answerNext(std::int32_t result) {
    answers_.push_back(result);
}

std::unique_ptr<Window> HeadlessToolkit::createWindow(const WindowDesign &design) {
    controls::checkDesign(design);
    return std::make_unique<HeadlessWindow>(*this, design);
}

std::int32_t HeadlessToolkit::showMessageBox(const std::u16string &title,
                                             const std::u16string &text, std::int32_t style) {
    messageBoxes_.push_back({title, text, style});
    std::int32_t result = style == message_box::yesNo ? message_box::no : message_box::ok;
    if (!answers_.empty()) {
        if (answers(style, answers_.front())) {
            result = answers_.front();
        } else {
            addProblem(title, u"the message box \"" + text + u"\" has no button for the answer " +
                                  toText(std::int64_t{answers_.front()}));
        }
        answers_.pop_front();
    }
    return result;
}

/// While it lives, its window is the active one. The destructor closes it.
class HeadlessToolkit::Showing {
public:
    Showing(std::vector<HeadlessWindow *> &shown, HeadlessWindow &window)
        : shown_(shown), window_(window) {
        shown_.push_back(&window);
    }
    ~Showing() {
        window_.close();
        shown_.pop_back();
    }
    Showing(const Showing &) = delete;
    Showing &operator=(const Showing &) = delete;

private:
    std::vector<HeadlessWindow *> &shown_;
    HeadlessWindow &window_;
};

void HeadlessToolkit::play(HeadlessWindow &window) {
    const Showing showing(shown_, window);
    if (scripts_.empty() && anyScript_) {
        playScript(window, anyScript_);
    } else if (scripts_.empty()) {
        addProblem(window.name(), u"was shown, which nobody waits for");
    } else if (scripts_.front().window != window.name()) {
        addProblem(window.name(), u"was shown, but awaited is " + scripts_.front().window);
    } else {
        const Script script = std::move(scripts_.front().script);
        scripts_.pop_front();
        playScript(window, script);
    }
}

void HeadlessToolkit::playScript(HeadlessWindow &window, const Script &script) {
    try {
        User user(window);
        script(user);
        if (window.isOpen()) {
            addProblem(window.name(), u"was left open");
        }
    } catch (...) {
        addProblem(window.name(), u"the script failed: " + fromUtf8(Error::current().what()));
    }
}

void HeadlessToolkit::addProblem(std::u16string_view window, std::u16string_view text) {
    problems_.push_back(toUtf8(window) + ": " + toUtf8(text));
}

} // namespace kvex::headless

// A toolkit's library without windows. FAKE_NAME is the text on its clipboard. FAKE_VERSION is the
// version that it says it belongs to. $OBSTACLE_TO_name says why it cannot show windows.
#include "adapters/toolkits/ToolkitLibrary.h"
#include "platform/Text.h"

#include <cstdlib>
#include <string>

namespace {

class FakeClipboard final : public kvex::Clipboard {
public:
    [[nodiscard]] bool hasText() const override { return true; }
    [[nodiscard]] std::u16string text() const override { return FAKE_NAME; }
};

/// Answers message boxes with 1, 2, 3 and so on, and fails to create windows.
class FakeToolkit final : public kvex::Toolkit {
public:
    [[nodiscard]] std::unique_ptr<kvex::Window>
    createWindow(const kvex::WindowDesign &design) override {
        throw kvex::Error(kvex::error_number::keyNotUnique, u"No " + design.name, u"Fake",
                          kvex::HelpContext::locked);
    }
    std::int32_t showMessageBox(const std::u16string & /*title*/, const std::u16string & /*text*/,
                                std::int32_t /*style*/) override {
        return ++boxes_;
    }
    [[nodiscard]] kvex::Clipboard &clipboard() override { return clipboard_; }

private:
    FakeClipboard clipboard_;
    std::int32_t boxes_ = 0;
};

std::u16string obstacle() {
    const std::string variable = "OBSTACLE_TO_" + kvex::toUtf8(FAKE_NAME);
    const char *const text = std::getenv(variable.c_str());
    return text == nullptr ? std::u16string() : kvex::fromUtf8(text);
}

} // namespace

const kvex::ToolkitLibrary *kvexToolkit() noexcept {
    static FakeToolkit toolkit;
    static const kvex::ToolkitLibrary library{FAKE_VERSION, "Fake 1.2", &toolkit, &obstacle};
    return &library;
}

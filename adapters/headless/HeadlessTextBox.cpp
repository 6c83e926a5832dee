#include "adapters/headless/HeadlessTextBox.h"

#include <limits>

namespace kvex::headless {

HeadlessTextBox::HeadlessTextBox(HeadlessWindow *window, const ControlDesign &design)
    : HeadlessControl(window, design) {
    replace(0, 0, design.caption);
}

bool HeadlessTextBox::passes(char16_t keyCode) {
    auto code = static_cast<std::int16_t>(keyCode);
    deliver(onKeyPress, code);
    return code != 0;
}

std::u16string HeadlessTextBox::pasteable(std::u16string_view text) const {
    return std::u16string(text.substr(0, text.find_first_of(u"\r\n")));
}

std::size_t HeadlessTextBox::limit() const {
    return design().maxLength > 0 ? static_cast<std::size_t>(design().maxLength)
                                  : std::numeric_limits<std::size_t>::max();
}

} // namespace kvex::headless

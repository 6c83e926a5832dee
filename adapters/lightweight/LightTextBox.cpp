#include "adapters/lightweight/LightTextBox.h"

#include <limits>

namespace kvex::lightweight {

LightTextBox::LightTextBox(LightWindow *window, const ControlDesign &design)
    : LightControl(window, design) {
    replace(0, 0, design.caption);
}

bool LightTextBox::passes(char16_t keyCode) {
    auto code = static_cast<std::int16_t>(keyCode);
    deliver(onKeyPress, code);
    return code != 0;
}

std::u16string LightTextBox::pasteable(std::u16string_view text) const {
    return std::u16string(text.substr(0, text.find_first_of(u"\r\n")));
}

std::size_t LightTextBox::limit() const {
    return design().maxLength > 0 ? static_cast<std::size_t>(design().maxLength)
                                  : std::numeric_limits<std::size_t>::max();
}

} // namespace kvex::lightweight

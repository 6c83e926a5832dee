#include "ui/Form.h"

#include "component/session/Session.h"

#include <exception>

namespace kvex {

void showHint(Label &hint, const std::function<std::u16string()> &sentence) {
    try {
        std::u16string caption;
        for (const char16_t unit : sentence()) {
            caption.append(unit == u'&' ? 2 : 1, unit);
        }
        hint.setCaption(caption);
        hint.setVisible(!caption.empty());
    } catch (const std::exception &) {
        hint.setVisible(false);
    }
}

Form::Form(const WindowDesign &design)
    : window_(session().platform->toolkit().createWindow(design)) {}

std::vector<CommandButton *> Form::buttons(std::initializer_list<std::u16string_view> names) {
    std::vector<CommandButton *> found;
    for (const std::u16string_view name : names) {
        found.push_back(&control<CommandButton>(name));
    }
    return found;
}

} // namespace kvex

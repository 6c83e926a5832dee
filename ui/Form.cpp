#include "ui/Form.h"

#include "component/session/Session.h"

namespace kvex {

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

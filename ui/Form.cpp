#include "ui/Form.h"

#include "component/Session.h"

namespace kvex {

Form::Form(const WindowDesign &design)
    : window_(session().platform->toolkit().createWindow(design)) {}

} // namespace kvex

#include "adapters/headless/HeadlessWindow.h"

namespace kvex::headless {

controls::ErrorObserver HeadlessWindow::errorObserver() {
    return [this](const Error &error) { toolkit_.unhandledErrors_.push_back(error); };
}

} // namespace kvex::headless

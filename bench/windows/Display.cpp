#include "bench/windows/Display.h"

#include "adapters/qt/QtApplication.h"
#include "tests/support/VirtualDisplay.h"

namespace kvex::bench {

void requireDisplay() {
    static const auto &display = *new test::VirtualDisplay;
    static_cast<void>(display);
    qt::requireApplication();
}

} // namespace kvex::bench

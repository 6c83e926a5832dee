// The entry point of the library KVEXTerminal.
#include "adapters/terminal/TerminalToolkit.h"
#include "adapters/terminal/io/Capabilities.h"
#include "adapters/terminal/io/PosixDevice.h"
#include "adapters/toolkits/ToolkitLibrary.h"

#include <string>
#include <unistd.h>

namespace {

using namespace kvex;
using namespace kvex::terminal;

std::u16string obstacle() {
    if (!isAtTerminal()) {
        return u"The standard input and output are no terminal. Start the program at a terminal.";
    }
    try {
        static_cast<void>(Capabilities::ofType(TerminalKind::ofEnvironment().type));
        return {};
    } catch (const Error &error) {
        return error.description();
    }
}

} // namespace

const ToolkitLibrary *kvexToolkit() noexcept {
    static PosixDevice device(STDIN_FILENO, STDOUT_FILENO);
    static TerminalToolkit toolkit(device, TerminalKind::ofEnvironment());
    static const std::string runtime = terminfoVersion();
    static const ToolkitLibrary library{KVEX_VERSION, runtime.c_str(), &toolkit, &obstacle};
    return &library;
}

// The entry point of the library KVEXTerminal.
#include "adapters/terminal/TerminalToolkit.h"
#include "adapters/terminal/io/PosixDevice.h"
#include "adapters/toolkits/ToolkitLibrary.h"

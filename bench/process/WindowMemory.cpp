// Shows the rules of an SQLite file in a window and prints the resident memory of the process in
// bytes: window_memory component|table FILE
#include "adapters/qt/QtApplication.h"
#include "bench/windows/Painting.h"
#include "bench/windows/RulesWindow.h"
#include "bench/windows/TableWindow.h"
#include "platform/Text.h"

#include <fstream>
#include <iostream>
#include <string_view>
#include <unistd.h>

namespace {

void printMemory() {
    std::size_t size = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    std::cout << resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) << '\n';
    kvex::bench::closeWindow();
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 3) {
        return 2;
    }
    const std::string_view kind = argv[1];
    const std::string file = argv[2];
    kvex::qt::requireApplication();
    if (kind == "component") {
        kvex::bench::QtSession session(u"Provider=SQLite;Data Source=" + kvex::fromUtf8(file));
        session.openAndShowRulesWindow(printMemory);
    } else {
        kvex::bench::TableDatabase(file).show(printMemory);
    }
    return 0;
}

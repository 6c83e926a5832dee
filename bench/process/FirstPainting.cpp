// A library to preload into a Qt program. When the program has handed its first painted window to
// the display, the library prints the time and the resident memory in bytes, and ends the program.
// So the program itself is measured as its users run it, without code for the benchmark.
#include <QBackingStore>

#include <chrono>
#include <cstdio>
#include <dlfcn.h>
#include <fstream>
#include <unistd.h>

/// Replaces Qt's function of this name, and calls it.
__attribute__((visibility("default"))) void
QBackingStore::flush(const QRegion &region, QWindow *window, const QPoint &offset) {
    using Flush = void (*)(QBackingStore *, const QRegion &, QWindow *, const QPoint &);
    void *const library = dlopen("libQt6Gui.so.6", RTLD_LAZY | RTLD_NOLOAD);
    const auto flush = reinterpret_cast<Flush>(
        dlsym(library, "_ZN13QBackingStore5flushERK7QRegionP7QWindowRK6QPoint"));
    flush(this, region, window, offset);
    const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
    std::size_t size = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    std::printf("%.9f %zu\n", now.count(),
                resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)));
    std::fflush(stdout);
    _exit(0);
}

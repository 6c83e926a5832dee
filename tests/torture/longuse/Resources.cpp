#include "tests/torture/longuse/Resources.h"

#include <dlfcn.h>
#include <malloc.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <iterator>

namespace kvex::torture {
namespace {

/// The sanitizers have an allocator of their own, which only they can ask.
std::size_t heapBytes() {
    const auto sanitizers = reinterpret_cast<std::size_t (*)()>(
        dlsym(RTLD_DEFAULT, "__sanitizer_get_current_allocated_bytes"));
    return sanitizers != nullptr ? sanitizers() : mallinfo2().uordblks + mallinfo2().hblkhd;
}

} // namespace

Resources resourcesNow() {
    using Files = std::filesystem::directory_iterator;
    return {.bytes = heapBytes(),
            .openFiles = static_cast<std::size_t>(std::distance(Files("/proc/self/fd"), Files()))};
}

void countExactly(char **arguments) {
    mallopt(M_MXFAST, 0);
    constexpr const char *tunables = "GLIBC_TUNABLES";
    if (std::getenv(tunables) == nullptr) {
        setenv(tunables, "glibc.malloc.tcache_count=0", 1);
        execv("/proc/self/exe", arguments);
    }
}

} // namespace kvex::torture

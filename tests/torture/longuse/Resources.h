// What a process holds: for tests that it does not grow.
#pragma once

#include <cstddef>

namespace kvex::torture {

struct Resources {
    /// Of the heap, as the allocator counts them.
    std::size_t bytes = 0;
    std::size_t openFiles = 0;
};

[[nodiscard]] Resources resourcesNow();

/// Call it first in main. The C library counts what it keeps for the next allocation as used.
/// Starts the program again without that, unless it has been.
void countExactly(char **arguments);

} // namespace kvex::torture

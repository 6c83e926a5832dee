#include "tests/recordset/FailingMemory.h"

#include <cstddef>
#include <cstdlib>

namespace kvex::test {
namespace {

constexpr int never = -1;
/// How many allocations succeed before the one that fails.
thread_local int remaining = never;

void *allocated(std::size_t size) {
    if (remaining != never && remaining-- == 0) {
        throw std::bad_alloc();
    }
    if (void *memory = std::malloc(size > 0 ? size : 1)) { // NOLINT(*-no-malloc)
        return memory;
    }
    throw std::bad_alloc();
}

} // namespace

FailingMemory::FailingMemory(int number) {
    remaining = number;
}

FailingMemory::~FailingMemory() {
    remaining = never;
}

} // namespace kvex::test

// This replaces the library's operator; the array forms call it, too.
void *operator new(std::size_t size) {
    return kvex::test::allocated(size);
}
void operator delete(void *memory) noexcept {
    std::free(memory); // NOLINT(*-no-malloc)
}
void operator delete(void *memory, std::size_t /*size*/) noexcept {
    std::free(memory); // NOLINT(*-no-malloc)
}

#include "tests/recordset/FailingMemory.h"

#include <cstddef>
#include <cstdlib>

namespace kvex::test {
namespace {

constexpr int never = -1;
/// How many allocations succeed before the one that fails.
thread_local int remaining = never;
/// The allocations after that one fail, too.
thread_local bool lasting = false;
thread_local bool failed = false;

bool fails() {
    if (remaining != never && remaining-- == 0) {
        failed = true;
        return true;
    }
    return failed && lasting;
}

void *allocated(std::size_t size) {
    if (fails()) {
        throw std::bad_alloc();
    }
    if (void *memory = std::malloc(size > 0 ? size : 1)) { // NOLINT(*-no-malloc)
        return memory;
    }
    throw std::bad_alloc();
}

} // namespace

FailingMemory::FailingMemory(int number, bool lasts) {
    remaining = number;
    lasting = lasts;
    failed = false;
}

FailingMemory::~FailingMemory() {
    remaining = never;
    lasting = false;
}

bool FailingMemory::hasFailed() {
    return failed;
}

} // namespace kvex::test

// This replaces the library's operator; the array forms call it, too.
void *operator new(std::size_t size) {
    return kvex::test::allocated(size);
}
// AddressSanitizer brings a form of its own, whose memory the operators below must not free.
void *operator new(std::size_t size, const std::nothrow_t & /*tag*/) noexcept {
    try {
        return kvex::test::allocated(size);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}
void operator delete(void *memory) noexcept {
    std::free(memory); // NOLINT(*-no-malloc)
}
void operator delete(void *memory, std::size_t /*size*/) noexcept {
    std::free(memory); // NOLINT(*-no-malloc)
}

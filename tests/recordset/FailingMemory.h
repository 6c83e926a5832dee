// Makes allocations fail in the program that links this.
#pragma once

#include <new>

namespace kvex::test {

/// While it lives, this thread's allocation number `number` fails. They count from 0. Later ones
/// fail, too, when `lasts` is true; else they succeed.
class FailingMemory {
public:
    explicit FailingMemory(int number, bool lasts = false);
    ~FailingMemory();
    FailingMemory(const FailingMemory &) = delete;
    FailingMemory &operator=(const FailingMemory &) = delete;

    /// True when an allocation has failed.
    [[nodiscard]] static bool hasFailed();
};

/// Runs `call` while allocation number `number` fails. False when the call made fewer allocations.
template <class Call> [[nodiscard]] bool failsAt(int number, Call call) {
    const FailingMemory failing(number);
    try {
        call();
    } catch (const std::bad_alloc &) {
        return true;
    }
    return false;
}

} // namespace kvex::test

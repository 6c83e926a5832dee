// Memory that cannot be had, for the program that this is linked into.
#pragma once

#include <new>

namespace kvex::test {

/// While it lives, this thread's allocation number `number` fails, counted from 0: that one alone.
class FailingMemory {
public:
    explicit FailingMemory(int number);
    ~FailingMemory();
    FailingMemory(const FailingMemory &) = delete;
    FailingMemory &operator=(const FailingMemory &) = delete;
};

/// Runs `call` with allocation number `number` failing. False when it got along with fewer.
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

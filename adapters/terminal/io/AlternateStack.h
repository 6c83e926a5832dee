// A stack for signal handlers.
#pragma once

#include <array>
#include <signal.h> // NOLINT: the standard's header lacks sigaltstack.

namespace kvex::terminal {

/// While it exists, this thread's handlers run even when the thread has used up its own stack. It
/// has no effect where the thread has an alternate stack already.
class AlternateStack {
public:
    AlternateStack() {
        sigaltstack(nullptr, &before_);
        if ((before_.ss_flags & SS_DISABLE) != 0) {
            stack_t own{};
            own.ss_sp = memory_.data();
            own.ss_size = memory_.size();
            sigaltstack(&own, nullptr);
        }
    }
    ~AlternateStack() {
        stack_t now{};
        sigaltstack(nullptr, &now);
        if (now.ss_sp == memory_.data()) {
            sigaltstack(&before_, nullptr);
        }
    }
    AlternateStack(const AlternateStack &) = delete;
    AlternateStack &operator=(const AlternateStack &) = delete;

private:
    stack_t before_{};
    std::array<char, 65536> memory_;
};

} // namespace kvex::terminal

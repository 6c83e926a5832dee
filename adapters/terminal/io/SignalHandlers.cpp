#include "adapters/terminal/io/SignalHandlers.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <pthread.h>
#include <signal.h> // NOLINT: the standard's header lacks sigaction.

namespace kvex::terminal {
namespace {

SignalReactions reactions{};

using Handler = void (*)(int, siginfo_t *, void *);

struct TakenSignal {
    int number;
    Handler handler;
    /// Take it only where it would end the process. A host's own handler for it, such as a timer's,
    /// has nothing to do with terminals.
    bool onlyDefault = false;
    struct sigaction before {};
    bool isTaken = false;
};

void stepAside(int number, siginfo_t *info, void *context);
void passOn(int number, siginfo_t *info, void *context);

void hangUp(int /*number*/, siginfo_t * /*info*/, void * /*context*/) {
    const int error = errno;
    reactions.hungUp();
    errno = error;
}

void resize(int number, siginfo_t *info, void *context) {
    const int error = errno;
    reactions.resized();
    passOn(number, info, context);
    errno = error;
}

void goOn(int number, siginfo_t *info, void *context) {
    const int error = errno;
    reactions.continued();
    passOn(number, info, context);
    errno = error;
}

std::array<TakenSignal, 22> signals{{
    {SIGHUP, hangUp},
    {SIGWINCH, resize},
    {SIGCONT, goOn},
    {SIGTERM, stepAside},
    {SIGINT, stepAside},
    {SIGQUIT, stepAside},
    {SIGTSTP, stepAside},
    {SIGSEGV, stepAside},
    {SIGABRT, stepAside},
    {SIGBUS, stepAside},
    {SIGFPE, stepAside},
    {SIGILL, stepAside},
    {SIGPIPE, stepAside, true},
    {SIGALRM, stepAside, true},
    {SIGUSR1, stepAside, true},
    {SIGUSR2, stepAside, true},
    {SIGXCPU, stepAside, true},
    {SIGXFSZ, stepAside, true},
    {SIGVTALRM, stepAside, true},
    {SIGPROF, stepAside, true},
    {SIGSYS, stepAside, true},
    {SIGTRAP, stepAside, true},
}};

TakenSignal &signalOf(int number) {
    for (TakenSignal &signal : signals) {
        if (signal.number == number) {
            return signal;
        }
    }
    return signals.front();
}

/// Calls the handler that the process had before.
void passOn(int number, siginfo_t *info, void *context) {
    const struct sigaction &before = signalOf(number).before;
    if ((before.sa_flags & SA_SIGINFO) != 0) {
        before.sa_sigaction(number, info, context);
    } else if (before.sa_handler != SIG_DFL && before.sa_handler != SIG_IGN) {
        before.sa_handler(number);
    }
}

/// Leaves the terminals, and lets the signal do what it would have done.
void stepAside(int number, siginfo_t * /*info*/, void * /*context*/) {
    const int error = errno;
    const Terminals left = reactions.leave();
    struct sigaction own {};
    sigaction(number, &signalOf(number).before, &own);
    // Until now the signal is blocked, because this is its handler.
    raise(number);
    sigset_t one;
    sigset_t mask;
    sigemptyset(&one);
    sigaddset(&one, number);
    pthread_sigmask(SIG_UNBLOCK, &one, &mask);
    // The process was stopped and continued, or the handler of the host has returned.
    pthread_sigmask(SIG_SETMASK, &mask, nullptr);
    sigaction(number, &own, nullptr);
    reactions.enterAgain(left);
    errno = error;
}

bool isOurs(const struct sigaction &action, Handler handler) {
    return (action.sa_flags & SA_SIGINFO) != 0 && action.sa_sigaction == handler;
}

} // namespace

void takeSignals(const SignalReactions &wanted) noexcept {
    reactions = wanted;
    for (TakenSignal &signal : signals) {
        sigaction(signal.number, nullptr, &signal.before);
        const bool isSimple = (signal.before.sa_flags & SA_SIGINFO) == 0;
        const bool isDefault = isSimple && signal.before.sa_handler == SIG_DFL;
        const bool isIgnored = isSimple && signal.before.sa_handler == SIG_IGN;
        signal.isTaken = !isIgnored && (isDefault || !signal.onlyDefault);
        if (signal.isTaken) {
            struct sigaction own {};
            own.sa_sigaction = signal.handler;
            own.sa_flags = SA_SIGINFO | SA_RESTART | SA_ONSTACK;
            // While the process is stopped, another signal may end it.
            sigemptyset(&own.sa_mask);
            sigaction(signal.number, &own, nullptr);
        }
    }
}

void giveSignalsBack() noexcept {
    for (TakenSignal &signal : signals) {
        struct sigaction now {};
        sigaction(signal.number, nullptr, &now);
        if (signal.isTaken && isOurs(now, signal.handler)) {
            sigaction(signal.number, &signal.before, nullptr);
        }
        signal.isTaken = false;
    }
}

} // namespace kvex::terminal

#include "host/kvexrules/Console.h"

#include "host/kvexrules/Failure.h"
#include "host/suite/ShownText.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <string>
#include <unistd.h>

namespace kvex::host {
namespace {

bool isYes(std::string answer) {
    std::ranges::transform(answer, answer.begin(), [](unsigned char c) { return std::tolower(c); });
    return answer == "y" || answer == "yes";
}

std::string lineFor(int stream, std::string_view text) {
    return (isatty(stream) == 1 ? toUtf8(visible(fromUtf8(text))) : std::string(text)) + "\n";
}

std::string variable(const char *name) {
    const char *value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// True when the terminal can do more than print lines.
bool isCapable() {
    const std::string terminal = variable("TERM");
    return !terminal.empty() && terminal != "dumb";
}

/// Ignores a failure: there is nowhere to report it.
void tell(std::string_view text) {
    static_cast<void>(writeAll(STDERR_FILENO, text));
}

} // namespace

int writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(descriptor, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

void secureStandardStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0) {
            // Opens the stand-in in the wrong direction, so that using it fails as on a closed
            // stream. open() takes the lowest free number, which is the closed stream's.
            static_cast<void>(
                open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY)); // NOLINT
        }
    }
}

void print(std::string_view text) {
    const int failure = writeAll(STDOUT_FILENO, text);
    if (failure == EPIPE) {
        throw ReaderGone();
    }
    if (failure != 0) {
        throw Failure("The output cannot be written (" + std::string(std::strerror(failure)) +
                      "). Redirect it to a terminal, a pipe or a disk with free space.");
    }
}

void printLine(std::string_view sentence) {
    print(lineFor(STDOUT_FILENO, sentence));
}

void report(const std::string &sentence) {
    try {
        printLine(sentence);
    } catch (const ReaderGone &) {
        complain(sentence);
    } catch (const Failure &failure) {
        throw Failure(sentence + " " + failure.what(), exit_status::refused);
    }
}

void complain(std::string_view sentences) {
    const std::u16string text = withoutPasswords(fromUtf8(sentences));
    tell("kvexrules: " + toUtf8(isatty(STDERR_FILENO) == 1 ? harmlessLines(text) : text) + "\n");
}

void complainExactly(std::string_view text) {
    tell(lineFor(STDERR_FILENO, text));
}

bool printsToTerminal() {
    return isatty(STDOUT_FILENO) == 1;
}

bool printsColours() {
    return printsToTerminal() && isCapable() && variable("NO_COLOR").empty();
}

Progress::Progress(std::string_view what, std::size_t total)
    : what_(what), total_(total), isShown_(isatty(STDERR_FILENO) == 1 && isCapable()) {
    show(what_);
}

Progress::~Progress() {
    show("");
}

void Progress::step(std::size_t steps) {
    if (total_ == 0) {
        return;
    }
    constexpr std::size_t whole = 100;
    const std::size_t before = done_ * whole / total_;
    done_ = std::min(done_ + steps, total_);
    const std::size_t percent = done_ * whole / total_;
    if (percent != before) {
        show(what_ + ": " + std::to_string(percent) + " %");
    }
}

void Progress::show(std::string_view line) {
    if (isShown_) {
        tell("\r" + std::string(line) + "\x1b[K");
    }
}

std::optional<bool> askAtTerminal(std::string_view question) {
    if (isatty(STDIN_FILENO) != 1 || isatty(STDERR_FILENO) != 1) {
        return std::nullopt;
    }
    tell(toUtf8(harmlessLines(fromUtf8(question))) + " [y/N] ");
    std::string answer;
    std::getline(std::cin, answer);
    return isYes(answer);
}

void requireConsent(std::string_view question, std::string_view verb) {
    const std::optional<bool> answer = askAtTerminal(question);
    if (!answer) {
        throw Failure("Nobody can be asked here, so nothing was changed. To " + std::string(verb) +
                          " without a question, add --yes.",
                      exit_status::refused);
    }
    if (!*answer) {
        throw Failure("Nothing was changed.", exit_status::refused);
    }
}

} // namespace kvex::host

#include "host/kvexrules/Console.h"

#include "host/kvexrules/Failure.h"
#include "host/suite/Passwords.h"
#include "platform/Text.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace kvex::host {
void secureStandardStreams() {
    std::signal(SIGPIPE, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0) {
            // Opened the wrong way round: its use fails as that of a closed stream does. The
            // lowest free number is the closed stream's.
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
                      "). Direct it to a terminal, a pipe or a file with room.");
    }
}

void complain(std::string_view sentences) {
    // Whoever cannot be told is not told.
    static_cast<void>(writeAll(
        STDERR_FILENO, "kvexrules: " + toUtf8(withoutPasswords(fromUtf8(sentences))) + "\n"));
}

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

} // namespace kvex::host

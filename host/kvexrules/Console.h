// The program's standard streams.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

/// Raised when the reader of the output has gone.
struct ReaderGone {};

/// Replaces every closed standard stream. Otherwise a file that is opened later could take its
/// place and get the output. Afterwards a write fails when the reader has gone; without this call
/// it would end the program. Call it first in main.
void secureStandardStreams();

/// Writes `text` to standard output at once. Raises ReaderGone when the reader has gone, and a
/// Failure when it cannot write.
void print(std::string_view text);

/// Writes `sentence` to standard output as a line. On a terminal, control characters are escaped as
/// visible() does.
void printLine(std::string_view sentence);

/// Writes `sentence`, which says what has been done, as printLine does. When the reader has gone,
/// standard error gets it. Raises a Failure with the status `refused` when it cannot write.
void report(const std::string &sentence);

/// Writes "kvexrules: " and `sentences` to standard error as a line, without passwords. On a
/// terminal, U+FFFD replaces control characters.
void complain(std::string_view sentences);

/// Writes exactly `text` to standard error as a line. On a terminal, control characters are escaped
/// as visible() does.
void complainExactly(std::string_view text);

/// True when standard output is a terminal.
[[nodiscard]] bool printsToTerminal();

/// True when standard output is a terminal for colours: $TERM names one that is not "dumb", and
/// $NO_COLOR is not set or empty.
[[nodiscard]] bool printsColours();

/// Shows how far long work is, as in "Importing contacts: 42 %". It does so on standard error, when
/// that is a terminal and $TERM is not "dumb". Nothing of it is left at the end.
class Progress {
public:
    /// `total` is the number of steps, or 0 when it is not known. Then it shows no percentage.
    explicit Progress(std::string_view what, std::size_t total = 0);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    /// So many more steps are done.
    void step(std::size_t steps = 1);

private:
    void show(std::string_view line);

    std::string what_;
    std::size_t total_;
    std::size_t done_ = 0;
    bool isShown_;
};

/// Asks on standard error and reads the answer from standard input. Returns true for "y" and "yes"
/// in any case, and nothing unless both streams are a terminal.
[[nodiscard]] std::optional<bool> askAtTerminal(std::string_view question);

/// Asks as askAtTerminal does before a command changes something. Raises a Failure with the status
/// `refused` unless the answer is yes. `verb` names the command, which has the option --yes.
void requireConsent(std::string_view question, std::string_view verb);

/// Writes all of `text` to an open descriptor. Returns 0 or the system's error number.
[[nodiscard]] int writeAll(int descriptor, std::string_view text);

} // namespace kvex::host

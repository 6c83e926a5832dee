// What a type of terminal can do, as the terminfo database describes it.
#pragma once

#include "adapters/controls/Keys.h"

#include <functional>
#include <map>
#include <string>

namespace kvex::terminal {

/// Byte sequences to write; "" where the terminal has none.
struct Capabilities {
    std::string placeCursor; ///< Takes a row and a column.
    std::string toColumn;    ///< Takes a column.
    std::string toFirstColumn;
    std::string left;
    std::string right;
    std::string down;
    std::string showCursor;
    std::string hideCursor;
    std::string clear;
    std::string eraseToEndOfLine;
    /// Takes the first and the last row of the region that the next two scroll. All three are there
    /// or none.
    std::string scrollRegion;
    std::string scrollUp;   ///< On the last row of the region.
    std::string scrollDown; ///< On the first row of the region.
    /// Makes the region the whole screen, whatever its size.
    std::string scrollAll;

    std::string plain; ///< Ends all attributes and colours.
    std::string bold;
    std::string dim;
    std::string reverse;
    std::string underline;
    std::string foreground; ///< Takes the number of a colour.
    int colours = 0;

    std::string enterScreen; ///< Opens the alternate screen.
    std::string leaveScreen;
    std::string enterKeypad;
    std::string leaveKeypad;
    std::string enterWrapping;
    std::string leaveWrapping;
    /// A character in the last column moves the cursor to the next line, at once or with the next
    /// character. At the end of the screen that scrolls.
    bool wrapsAtOnce = false;
    /// Its mouse and its marks around a pasted text are those of xterm, which all others copied.
    bool hasMouse = false;

    /// What its keys send, if that begins with Esc.
    std::map<std::string, controls::Key, std::less<>> keys;

    /// Reads the database. Throws Error with one sentence for the user when it has no such type, or
    /// when a terminal of that type cannot show windows. Any thread may call it at any time, also
    /// in a process that uses the library itself.
    [[nodiscard]] static Capabilities ofType(const std::string &type);
};

/// The library that reads the database, with its version: "terminfo 6.4".
[[nodiscard]] std::string terminfoVersion();

/// The sequence with its numbers filled in.
[[nodiscard]] std::string filled(const std::string &sequence, int first, int second = 0);

} // namespace kvex::terminal

// A terminal that shows grids of cells and tells what its user does.
#pragma once

#include "adapters/terminal/io/CellGrid.h"
#include "adapters/terminal/io/Decoder.h"
#include "adapters/terminal/io/Device.h"
#include "adapters/terminal/io/Input.h"

#include <chrono>
#include <memory>
#include <string>

namespace kvex::terminal {

/// What the program knows about the terminal at the other end of the line.
struct TerminalKind {
    /// Its type, $TERM.
    std::string type;
    Characters characters = Characters::unicode;
    /// False when the user wants no colours.
    bool mayColour = true;
    /// How long the bytes of one key may take. Over a slow network that can be longer. When it has
    /// passed, Esc is the key itself.
    std::chrono::milliseconds patience = Decoder::patience;

    /// As the environment says it: $TERM, the locale that LC_ALL, LC_CTYPE or LANG name, $NO_COLOR,
    /// and $ESCDELAY in milliseconds, as programs with curses read it. The locale of the process
    /// does not count, because a host may have set none.
    [[nodiscard]] static TerminalKind ofEnvironment();
};

/// One thread uses a terminal; several threads can have one each.
class Terminal {
public:
    /// Looks the type up. Throws Error with one sentence for the user when a terminal of that type
    /// cannot show windows. The device must outlive the terminal.
    Terminal(Device &device, const TerminalKind &kind);
    ~Terminal();

    /// Windows lie over each other on one terminal: only the first open() takes the screen, and
    /// only the last close() gives it back. Throws Error when the device is no terminal.
    void open();
    void close() noexcept;

    /// At least 1 x 1.
    [[nodiscard]] Size size() const;
    [[nodiscard]] bool hasColours() const noexcept;
    [[nodiscard]] bool hasMouse() const noexcept;
    [[nodiscard]] Characters characters() const noexcept;

    /// Makes the screen show the grid, by writing what differs. A grid of another size is cut, or
    /// has blanks around it.
    void show(const CellGrid &grid);

    /// Waits for the user. After Resized and Repaint, show() writes everything again.
    [[nodiscard]] Input next();
    /// True when next() would not wait: a painter can leave out a picture that nobody would see.
    [[nodiscard]] bool hasInput();

    /// Stops the program as Ctrl+Z does at a shell. Repaint follows when it continues.
    void suspend();

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// RAII for open() and close().
class OpenTerminal {
public:
    explicit OpenTerminal(Terminal &terminal) : terminal_(terminal) { terminal_.open(); }
    ~OpenTerminal() { terminal_.close(); }
    OpenTerminal(const OpenTerminal &) = delete;
    OpenTerminal &operator=(const OpenTerminal &) = delete;

private:
    Terminal &terminal_;
};

} // namespace kvex::terminal

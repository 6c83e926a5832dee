#include "adapters/terminal/io/Terminal.h"

#include "adapters/terminal/io/Capabilities.h"
#include "adapters/terminal/io/Screen.h"

#include <utility>

namespace kvex::terminal {
namespace {

// Terminfo has no capabilities for these in most descriptions. They are those of xterm.
constexpr std::string_view enterMouse = "\x1b[?1000h\x1b[?1006h";
constexpr std::string_view leaveMouse = "\x1b[?1006l\x1b[?1000l";
constexpr std::string_view enterPaste = "\x1b[?2004h";
constexpr std::string_view leavePaste = "\x1b[?2004l";

std::string entering(const Capabilities &capabilities) {
    std::string bytes =
        capabilities.enterScreen + capabilities.enterKeypad + capabilities.leaveWrapping;
    if (capabilities.hasMouse) {
        bytes.append(enterMouse).append(enterPaste);
    }
    return bytes;
}

std::string leaving(const Capabilities &capabilities) {
    // The program may end while it writes a picture that scrolls a region.
    std::string bytes = capabilities.plain + capabilities.scrollAll;
    if (capabilities.hasMouse) {
        bytes.append(leavePaste).append(leaveMouse);
    }
    bytes += capabilities.enterWrapping + capabilities.leaveKeypad + capabilities.showCursor;
    // Without an alternate screen nothing brings the old contents back.
    return bytes +
           (capabilities.leaveScreen.empty() ? capabilities.clear : capabilities.leaveScreen);
}

} // namespace

struct Terminal::State {
    State(Device &line, const TerminalKind &kind)
        : device(line), capabilities(Capabilities::ofType(kind.type)), characters(kind.characters),
          colours(kind.mayColour ? capabilities.colours : 0), patience(kind.patience),
          screen(capabilities, colours), decoder(capabilities.keys) {}

    [[nodiscard]] Size size() const {
        const Size known = device.size();
        return known.columns > 0 && known.rows > 0 ? known : Size{80, 24};
    }

    /// Returns what is not for the decoder.
    std::optional<Input> take(const Arrival &arrival) {
        switch (arrival.kind) {
        case Arrival::Kind::bytes:
            decoder.take(arrival.bytes, std::chrono::steady_clock::now());
            return std::nullopt;
        case Arrival::Kind::nothing:
            return std::nullopt;
        case Arrival::Kind::resized:
            screen.forget(size());
            return Resized{};
        case Arrival::Kind::resumed:
            screen.forget(size());
            return Repaint{};
        case Arrival::Kind::hungUp:
            break;
        }
        return HungUp{};
    }

    Device &device;
    const Capabilities capabilities;
    const Characters characters;
    const int colours;
    const std::chrono::milliseconds patience;
    Screen screen;
    Decoder decoder;
    std::optional<Input> waiting;
    int opened = 0;
};

Terminal::Terminal(Device &device, const TerminalKind &kind)
    : state_(std::make_unique<State>(device, kind)) {}

Terminal::~Terminal() {
    state_->device.release();
}

void Terminal::open() {
    if (state_->opened == 0) {
        state_->device.acquire(entering(state_->capabilities), leaving(state_->capabilities));
        state_->screen.forget(size());
    }
    ++state_->opened;
}

void Terminal::close() noexcept {
    if (--state_->opened == 0) {
        state_->device.release();
    }
}

Size Terminal::size() const {
    return state_->size();
}

bool Terminal::hasColours() const noexcept {
    return state_->colours >= 8;
}

bool Terminal::hasMouse() const noexcept {
    return state_->capabilities.hasMouse;
}

Characters Terminal::characters() const noexcept {
    return state_->characters;
}

void Terminal::show(const CellGrid &grid) {
    const std::string bytes = state_->screen.update(grid);
    if (!bytes.empty()) {
        state_->device.write(bytes);
    }
}

Input Terminal::next() {
    State &state = *state_;
    for (;;) {
        if (hasInput()) {
            if (std::holds_alternative<Repaint>(*state.waiting)) {
                state.screen.forget(size());
            }
            return *std::exchange(state.waiting, std::nullopt);
        }
        std::optional<std::chrono::milliseconds> timeout;
        if (state.decoder.isWaiting()) {
            timeout = state.patience;
        }
        const Arrival arrival = state.device.read(timeout);
        if (arrival.kind == Arrival::Kind::nothing) {
            state.decoder.pause(std::chrono::steady_clock::now());
        }
        state.waiting = state.take(arrival);
    }
}

bool Terminal::hasInput() {
    State &state = *state_;
    if (!state.waiting) {
        state.waiting = state.decoder.next();
    }
    if (!state.waiting) {
        state.waiting = state.take(state.device.read(std::chrono::milliseconds(0)));
    }
    if (!state.waiting) {
        state.waiting = state.decoder.next();
    }
    return state.waiting.has_value();
}

void Terminal::suspend() {
    state_->device.suspend();
}

} // namespace kvex::terminal

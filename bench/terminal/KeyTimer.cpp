#include "bench/terminal/KeyTimer.h"

namespace kvex::bench {

void KeyTimer::press(std::string_view key) {
    // A terminal that nobody reads takes only so many bytes.
    static_cast<void>(terminal_.read());
    writtenBefore_ = device_.written.size();
    isPressing_ = true;
    isTyped_ = true;
    pressedAt_ = Clock::now();
    terminal_.type(key);
    try {
        for (;;) {
            toolkit_.desktop().handleNext();
        }
    } catch (const Idle &) {
        isPressing_ = false;
    }
}

void KeyTimer::wait() {
    if (isTyped_) {
        return;
    }
    if (isPressing_) {
        throw Idle();
    }
    onWindow();
    // The window is closed. This ends its wait and does nothing else.
    terminal_.type(" ");
}

terminal::Arrival KeyTimer::Device::read(std::optional<std::chrono::milliseconds> timeout) {
    if (!timeout) {
        timer_.wait();
    }
    terminal::Arrival arrival = PosixDevice::read(timeout);
    timer_.isTyped_ = timer_.isTyped_ && arrival.kind != terminal::Arrival::Kind::bytes;
    return arrival;
}

void KeyTimer::Device::write(std::string_view bytes) {
    PosixDevice::write(bytes);
    writtenAt = Clock::now();
    written += bytes;
}

} // namespace kvex::bench

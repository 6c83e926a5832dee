// A line to a terminal that exists in memory only.
#pragma once

#include "adapters/terminal/io/Device.h"

#include <deque>
#include <functional>
#include <string>
#include <utility>

namespace kvex::test {

class FakeDevice : public terminal::Device {
public:
    explicit FakeDevice(terminal::Size size = {80, 24}) : size_(size) {}

    /// What the user does next.
    void type(std::string bytes) { arrivals_.push_back({Kind::bytes, std::move(bytes)}); }
    void resize(terminal::Size size) {
        size_ = size;
        arrivals_.push_back({Kind::resized, {}});
    }
    void hangUp() { arrivals_.push_back({Kind::hungUp, {}}); }

    /// Called when the program waits for the user and nothing is there. The test looks at the
    /// screen and types. When there is still nothing then, the user hangs up.
    std::function<void()> onWait;

    /// What the program has written since the last call.
    std::string taken() { return std::exchange(output_, {}); }
    [[nodiscard]] bool isAcquired() const noexcept { return isAcquired_; }
    [[nodiscard]] int suspensions() const noexcept { return suspensions_; }

    void acquire(std::string_view enter, std::string_view leave) override {
        output_ += enter;
        leave_ = leave;
        isAcquired_ = true;
    }
    void release() noexcept override {
        if (std::exchange(isAcquired_, false)) {
            output_ += leave_;
        }
    }
    [[nodiscard]] terminal::Size size() const override { return size_; }
    [[nodiscard]] terminal::Arrival
    read(std::optional<std::chrono::milliseconds> timeout) override {
        if (arrivals_.empty() && !timeout && onWait) {
            onWait();
        }
        if (arrivals_.empty()) {
            return {timeout ? Kind::nothing : Kind::hungUp, {}};
        }
        if (arrivals_.front().kind == Kind::hungUp) {
            return arrivals_.front();
        }
        terminal::Arrival arrival = std::move(arrivals_.front());
        arrivals_.pop_front();
        return arrival;
    }
    void write(std::string_view bytes) override { output_ += bytes; }
    void suspend() override {
        ++suspensions_;
        arrivals_.push_back({Kind::resumed, {}});
    }

private:
    using Kind = terminal::Arrival::Kind;

    terminal::Size size_;
    std::deque<terminal::Arrival> arrivals_;
    std::string output_;
    std::string leave_;
    bool isAcquired_ = false;
    int suspensions_ = 0;
};

} // namespace kvex::test

// Decides which of many points is the one that fails.
#pragma once

#include <cstdint>
#include <optional>

namespace kvex::torture {

/// How long a fault lasts: one point, or every point from the first one on.
enum class Lasting { once, forGood };

class Countdown {
public:
    explicit Countdown(Lasting lasting) : lasting_(lasting) {}

    /// The point with this number from now on fails; they count from 0.
    void arm(std::uint64_t number) { left_ = number; }
    /// Called at each point: true when it fails.
    [[nodiscard]] bool strikes() {
        if (left_ && (*left_)-- == 0) {
            left_.reset();
            hasStruck_ = true;
            return true;
        }
        return hasStruck_ && lasting_ == Lasting::forGood;
    }
    /// No further point fails, unless the fault has struck for good. True when it has struck.
    bool disarm() {
        left_.reset();
        return hasStruck_;
    }

private:
    Lasting lasting_;
    std::optional<std::uint64_t> left_;
    bool hasStruck_ = false;
};

} // namespace kvex::torture

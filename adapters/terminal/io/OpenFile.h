// An open file of the system.
#pragma once

#include <unistd.h>
#include <utility>

namespace kvex::terminal {

/// Closes the file at the end.
class OpenFile {
public:
    OpenFile() = default;
    explicit OpenFile(int number) : number_(number) {}
    OpenFile(OpenFile &&other) noexcept : number_(std::exchange(other.number_, -1)) {}
    OpenFile &operator=(OpenFile &&other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~OpenFile() {
        if (number_ >= 0) {
            close(number_);
        }
    }
    /// -1 if there is none.
    [[nodiscard]] int number() const noexcept { return number_; }

private:
    int number_ = -1;
};

} // namespace kvex::terminal

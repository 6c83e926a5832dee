// Remembers a thread of this process, and names it in messages.
#pragma once

#include <string>
#include <thread>

namespace kvex {

class OwnerThread {
public:
    /// The calling thread.
    OwnerThread();

    [[nodiscard]] bool isCurrent() const noexcept { return id_ == std::this_thread::get_id(); }
    /// "the thread 4711 (name)", with the system's number and name of the thread. A thread that has
    /// ended is "the thread 4711, which has ended".
    [[nodiscard]] std::u16string text() const;

private:
    std::thread::id id_ = std::this_thread::get_id();
    /// The system's number in decimal. "" when the system does not tell it.
    std::string number_;
};

} // namespace kvex

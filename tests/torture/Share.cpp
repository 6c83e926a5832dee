#include "tests/torture/Share.h"

#include <charconv>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace kvex::torture {
namespace {

template <class Number> std::optional<Number> numberIn(std::string_view text) {
    Number number = 0;
    const char *const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

[[noreturn]] void endWithUsage(std::string_view program) {
    std::cerr << "usage: " << program << " [--minutes M] [--seed S]\n";
    std::exit(2);
}

} // namespace

Share::Share(std::span<const char *const> arguments, std::uint64_t shortRuns)
    : program_(arguments.front()), shortRuns_(shortRuns) {
    program_.erase(0, program_.rfind('/') + 1);
    for (std::size_t at = 1; at < arguments.size(); at += 2) {
        const std::string_view option = arguments[at];
        const std::string_view value = at + 1 < arguments.size() ? arguments[at + 1] : "";
        const auto minutes = numberIn<double>(value);
        const auto seed = numberIn<std::uint64_t>(value);
        constexpr double mostMinutes = 1e6;
        if (option == "--minutes" && minutes && *minutes >= 0 && *minutes <= mostMinutes) {
            const std::chrono::duration<double, std::ratio<60>> length(*minutes);
            end_ = Clock::now() + std::chrono::duration_cast<Clock::duration>(length);
        } else if (option == "--seed" && seed) {
            firstSeed_ = *seed;
        } else {
            endWithUsage(program_);
        }
    }
}

bool Share::next() {
    const bool isDone = end_ ? Clock::now() >= *end_ : runs_ >= shortRuns_;
    if (isDone && runs_ > 0) {
        return false;
    }
    ++runs_;
    return true;
}

std::string Share::repeatCommand() const {
    return program_ + " --seed " + std::to_string(seed());
}

} // namespace kvex::torture

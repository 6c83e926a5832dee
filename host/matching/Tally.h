// What rules did to many messages.
#pragma once

#include "host/matching/Matcher.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kvex::host {

class Tally {
public:
    /// `matcher` must outlive it.
    explicit Tally(Matcher &matcher) : matcher_(&matcher), hits_(matcher.rules().size()) {}

    /// Plays the message that stands in this line of a file.
    void play(const Message &message, std::size_t line);

    [[nodiscard]] const std::vector<PlayedRule> &rules() const { return matcher_->rules(); }
    [[nodiscard]] std::size_t messages() const { return messages_; }
    /// For each of rules(): the number of messages to which it applied.
    [[nodiscard]] const std::vector<std::size_t> &hits() const { return hits_; }
    /// The lines of the messages to which no rule applied.
    [[nodiscard]] const std::vector<std::size_t> &untouched() const { return untouched_; }

private:
    Matcher *matcher_;
    std::size_t messages_ = 0;
    std::vector<std::size_t> hits_;
    std::vector<std::size_t> untouched_;
};

inline void Tally::play(const Message &message, std::size_t line) {
    const std::vector<std::size_t> &matched = matcher_->play(message);
    ++messages_;
    for (const std::size_t place : matched) {
        ++hits_[place];
    }
    if (matched.empty()) {
        untouched_.push_back(line);
    }
}

} // namespace kvex::host

// A seeded user: chooses the next event among those that a person could do now.
#pragma once

#include "adapters/headless/HeadlessWindow.h"
#include "tests/torture/monkey/Event.h"
#include "tests/torture/monkey/Tables.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <vector>

namespace kvex::torture {

class Monkey {
public:
    /// The monkey of this seed does `events` events and then no more.
    Monkey(std::uint64_t seed, int events);

    /// The first event: the world that the others take place in.
    [[nodiscard]] Event world();
    /// The next event. `window` is the active one, or null between sessions.
    [[nodiscard]] std::optional<Event> next(const headless::HeadlessWindow *window,
                                            const Tables &tables);

private:
    [[nodiscard]] int below(int count) {
        return static_cast<int>(random_() % static_cast<unsigned>(count));
    }
    [[nodiscard]] bool happens(int percent) { return below(100) < percent; }
    template <class Items> [[nodiscard]] const auto &oneOf(const Items &items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(std::size(items))))];
    }
    [[nodiscard]] Event opening(const Tables &tables);
    [[nodiscard]] std::optional<Event> ofWindow(const headless::HeadlessWindow &window);
    [[nodiscard]] std::optional<Event> onElement(const lightweight::Element &element);
    [[nodiscard]] Event ofKeyboard(const headless::HeadlessWindow &window);
    [[nodiscard]] Event ofOtherProgram(const Tables &tables);
    [[nodiscard]] int someRule(const Tables &tables);
    [[nodiscard]] std::u16string textFor(std::u16string_view control);

    std::mt19937_64 random_;
    int left_;
    /// Whether this monkey types ";" and tags, and whether another program is at work.
    bool odd_;
    bool accompanied_;
};

} // namespace kvex::torture

// Plays a run: takes event after event from a source, and stops at the first finding.
#pragma once

#include "adapters/headless/HeadlessToolkit.h"
#include "tests/support/ComponentTest.h"
#include "tests/torture/monkey/Watch.h"
#include "tests/torture/monkey/World.h"

#include <functional>
#include <optional>

namespace kvex::torture {

/// Gives the next event, or nothing at the end. `window` is null between sessions.
using EventSource = std::function<std::optional<Event>(const headless::HeadlessWindow *window,
                                                       const Tables &tables)>;

class Player {
public:
    /// `world` is the event that says which rules there are at first.
    Player(const Event &world, EventSource source);

    /// Plays until the source ends. A session that is open then is closed by its windows' frames.
    void play();
    [[nodiscard]] const Watch &watch() const { return watch_; }

private:
    class MonkeyPlatform;

    void openSession(const Event &event);
    void playWindow(headless::User &user);
    void playInWindow(const Event &event, headless::User &user, headless::HeadlessWindow &window);
    /// Takes the event that comes next, unless there is none or it needs another place.
    [[nodiscard]] std::optional<Event> take(const headless::HeadlessWindow *window);
    /// Does an event that needs no window. Returns false for any other.
    bool doAnywhere(const Event &event);
    [[nodiscard]] bool isOver() const { return !watch_.finding().empty(); }

    World world_;
    EventSource source_;
    std::optional<Event> waiting_;
    test::UtilityRecord utility_;
    headless::HeadlessToolkit toolkit_;
    Watch watch_;
    bool answersYes_ = false;
    /// The rule that ShowRules opens, then the rule in the editor; 0 for a new one.
    std::int64_t opened_ = 0;
    std::int64_t edited_ = 0;
};

} // namespace kvex::torture

// Checks after each event and each session that only that changed which the user changed.
#pragma once

#include "adapters/headless/HeadlessToolkit.h"
#include "tests/support/TestUtility.h"
#include "tests/torture/monkey/Act.h"
#include "tests/torture/monkey/ExpectedLog.h"
#include "tests/torture/monkey/NotedEdits.h"
#include "tests/torture/monkey/Outcome.h"
#include "tests/torture/monkey/World.h"

#include <cstdint>
#include <string>

namespace kvex::torture {

struct Counts {
    int events = 0;
    int sessions = 0;
    int saves = 0;
    int ticks = 0;
    int removals = 0;
    int orders = 0;
    int errors = 0;

    Counts &operator+=(const Counts &more);
};

class Watch {
public:
    Watch(World &world, test::UtilityRecord &utility, const headless::HeadlessToolkit &toolkit)
        : world_(world), utility_(utility), toolkit_(toolkit), last_(world.tables()) {}

    /// Call it with each event before it takes place.
    void hears(const Event &event);
    /// `rule` is the ID that ShowRules gets; 0 for none.
    void sessionOpens(const Event &event, std::int64_t rule);
    void sessionEnds(std::int32_t result);
    /// A window appeared; no event of the user has changed anything since the last check.
    void windowOpens(const headless::HeadlessWindow &window);
    void actEnds(const Act &act, const Event &event, const headless::HeadlessWindow &window);
    /// Call it after each event of the other program.
    void otherActed();

    /// The first property that did not hold: its name, ": " and what happened. "" while all hold.
    [[nodiscard]] const std::string &finding() const { return finding_; }
    [[nodiscard]] const Counts &counts() const { return counts_; }
    [[nodiscard]] const Tables &lastTables() const { return last_; }

private:
    /// Keeps the first finding. "" is none.
    void report(const std::string &finding);
    /// Checks what was logged since the last call, and returns whether an error was.
    bool readLog();
    void checkProblems();
    void checkChange(const Act &act, const Tables &now);
    void checkOutcome(const Act &act, const Outcome &outcome);
    void count(const Act &act, const Tables &now);

    World &world_;
    test::UtilityRecord &utility_;
    const headless::HeadlessToolkit &toolkit_;
    Tables last_;
    Circumstances now_;
    NotedEdits noted_;
    /// The other program has written since the session opened.
    bool otherWrote_ = false;
    std::size_t problems_ = 0;
    std::size_t unhandled_ = 0;
    std::string finding_;
    Counts counts_;
};

} // namespace kvex::torture

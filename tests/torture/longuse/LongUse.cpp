// long_use_torture: one session after the other in the same process. Memory and open files must not
// grow.
#include "tests/torture/Share.h"
#include "tests/torture/longuse/Resources.h"
#include "tests/torture/monkey/Player.h"

#include <array>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace {

using namespace kvex::torture;

constexpr std::uint64_t shortShare = 400;
/// By then everything that is kept for ever has been allocated.
constexpr int settledAfter = 100;
/// The heap may differ by this much at the end of a session. One lost byte in each of 10,000
/// sessions is more.
constexpr std::size_t tolerance = 4096;

/// A session that uses every window and leaves as many rules as it found.
constexpr std::array session{
    "open 2",
    "row lvwRuleConditions 2",
    "click cmdEditCondition",
    "write txtMobileNo \"9811100099\"",
    "key \"enter\"",
    "click cmdAddressBook",
    "tick lvwContacts 1",
    "click cmdSelect",
    "click cmdOptions",
    "click cmdOK",
    "row lvwPeople 4",
    "click cmdRemove",
    "row lvwPeople 4",
    "click cmdRemove",
    "click cmdOK",
    "row lvwRuleConditions 3",
    "click cmdEditCondition",
    "click cmdOK",
    "row lvwRuleConditions 4",
    "click cmdEditCondition",
    "click cmdCancel",
    "row lvwRuleConditions 5",
    "click cmdEditCondition",
    "time FromTime 8 0 0",
    "click cmdOK",
    "row lvwRuleActions 1",
    "click cmdConfigureAction",
    "click cmdAll",
    "click cmdOK",
    "row lvwRuleActions 2",
    "click cmdConfigureAction",
    "write rtReplyText \"Received\"",
    "click cmdOK",
    "row lvwRuleActions 3",
    "click cmdConfigureAction",
    "click cmdOK",
    "click cmdOK",
    "tick lvwRules 3",
    "tick lvwRules 3",
    "click cmdNew",
    "tick lvwRuleConditions 6",
    "tick lvwRuleActions 4",
    "click cmdOK",
    "row lvwRules 1",
    "answer 1",
    "click cmdRemove",
    "row lvwRules 2",
    "click cmdMoveDown",
    "click cmdOK",
};

/// Ends the script when a finding or a resource says so.
class LongUse {
public:
    explicit LongUse(Share share) : share_(std::move(share)) {}

    int play();

private:
    std::optional<Event> next();
    void measure();

    Share share_;
    std::size_t at_ = 0;
    int sessions_ = 0;
    Resources settled_;
    Resources now_;
};

std::optional<Event> LongUse::next() {
    if (at_ == session.size()) {
        at_ = 0;
        measure();
    }
    if (at_ == 0 && !share_.next()) {
        return std::nullopt;
    }
    return eventOf(session.at(at_++));
}

void LongUse::measure() {
    now_ = resourcesNow();
    if (++sessions_ == settledAfter) {
        settled_ = now_;
    }
}

int LongUse::play() {
    constexpr int rules = 5;
    Player player({.kind = EventKind::world, .numbers = {rules, 0}},
                  [this](const auto * /*window*/, const auto & /*tables*/) { return next(); });
    player.play();
    const bool grows = sessions_ > settledAfter && (now_.bytes > settled_.bytes + tolerance ||
                                                    now_.openFiles > settled_.openFiles);
    const std::string &finding = player.watch().finding();
    if (!finding.empty()) {
        std::cout << "finding: " << finding << "\nrepeat: " << share_.repeatCommand() << '\n';
    }
    if (grows) {
        std::cout << "finding: the process grows\n";
    }
    std::cout << "long_use: " << sessions_ << " sessions with " << player.watch().counts().events
              << " events; heap " << settled_.bytes << " bytes at session " << settledAfter << ", "
              << now_.bytes << " at the end; open files " << settled_.openFiles << ", "
              << now_.openFiles << "; " << (finding.empty() ? 0 : 1) + (grows ? 1 : 0)
              << " findings\n";
    return finding.empty() && !grows ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char **argv) {
    countExactly(argv);
    preferMemory();
    return LongUse(Share({argv, static_cast<std::size_t>(argc)}, shortShare)).play();
}

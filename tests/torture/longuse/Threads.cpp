// threads_torture: users on threads of one process, each with a session and a database of its own.
#include "tests/torture/Share.h"
#include "tests/torture/monkey/Monkey.h"
#include "tests/torture/monkey/Player.h"

#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace kvex::torture;

constexpr std::uint64_t shortShare = 4;
constexpr std::size_t threadCount = 8;
constexpr int eventsOfAUser = 300;

struct Played {
    Counts counts;
    std::string finding;
};

Played playUser(std::uint64_t seed) {
    Monkey monkey(seed, eventsOfAUser);
    const Event world = monkey.world();
    Player player(world, [&](const kvex::headless::HeadlessWindow *window, const Tables &tables) {
        return monkey.next(window, tables);
    });
    player.play();
    return {player.watch().counts(), player.watch().finding()};
}

std::vector<Played> playTogether(std::uint64_t seed) {
    std::vector<Played> played(threadCount);
    std::vector<std::jthread> threads;
    for (std::size_t thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back(
            [&played, thread, seed] { played[thread] = playUser(seed * threadCount + thread); });
    }
    threads.clear();
    return played;
}

} // namespace

int main(int argc, char **argv) {
    preferMemory();
    Share share({argv, static_cast<std::size_t>(argc)}, shortShare);
    Counts sum;
    int findings = 0;
    while (share.next()) {
        for (const Played &user : playTogether(share.seed())) {
            sum += user.counts;
            if (!user.finding.empty()) {
                ++findings;
                std::cout << "finding: " << user.finding << "\nrepeat: " << share.repeatCommand()
                          << '\n';
            }
        }
    }
    std::cout << "threads: " << threadCount << " at a time, " << share.runs() * threadCount
              << " users, " << sum.sessions << " sessions, " << sum.events << " events, "
              << sum.saves << " saves, " << findings << " findings\n";
    return findings == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

// monkey_torture: seeded users work with all windows on a real database, and each of their actions
// may change only what is its own.
#include "tests/torture/Share.h"
#include "tests/torture/monkey/Run.h"
#include "tests/torture/monkey/World.h"

#include <cstdlib>
#include <iostream>
#include <set>
#include <span>
#include <string_view>

namespace {

using namespace kvex::torture;

/// A world that gets too old has no rules left, or too many.
constexpr int eventsOfARun = 500;
constexpr std::uint64_t shortShare = 100;
constexpr std::size_t attemptsToShorten = 2000;

void print(const RunResult &played) {
    std::cout << "finding: " << played.finding << '\n' << played.diagnostics;
}

/// Prints the finding with the shortest script that still leads to it.
void printShortened(const Share &share, const RunResult &played) {
    const auto failsAlike = [&](const Lines &lines) {
        return playScript(lines).property() == played.property();
    };
    const Lines script = shortest(played.script, failsAlike, attemptsToShorten);
    print(played);
    std::cout << "# repeat: " << share.repeatCommand() << "\n# or, as " << script.size() << " of "
              << played.script.size() << " events: monkey_torture --script FILE\n";
    for (const std::string &line : script) {
        std::cout << line << '\n';
    }
    std::cout << std::flush;
}

int playShare(Share share) {
    Counts sum;
    int findings = 0;
    std::set<std::string> printed;
    while (share.next()) {
        const RunResult played = playSeed(share.seed(), eventsOfARun);
        sum += played.counts;
        if (!played.finding.empty()) {
            ++findings;
            if (printed.insert(played.property()).second) {
                printShortened(share, played);
            }
        }
    }
    std::cout << "monkey: " << sum.events << " events, " << sum.sessions << " sessions, "
              << sum.saves << " saves, " << sum.ticks << " ticks, " << sum.removals << " removals, "
              << sum.orders << " orders, " << sum.errors << " expected errors, " << findings
              << " findings\n";
    return findings == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

int playFile(const std::string &file) {
    const RunResult played = playScript(readScript(file));
    if (!played.finding.empty()) {
        print(played);
    }
    std::cout << "monkey: " << played.counts.events << " events, "
              << (played.finding.empty() ? 0 : 1) << " findings\n";
    return played.finding.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char **argv) {
    preferMemory();
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    try {
        if (argc == 3 && std::string_view(arguments[1]) == "--script") {
            return playFile(arguments[2]);
        }
        return playShare(Share(arguments, shortShare));
    } catch (const std::exception &error) {
        std::cerr << "monkey_torture: " << error.what() << '\n';
        return 2;
    }
}

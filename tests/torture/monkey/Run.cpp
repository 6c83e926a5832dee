#include "tests/torture/monkey/Run.h"

#include "tests/torture/monkey/Monkey.h"
#include "tests/torture/monkey/Player.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <string_view>

namespace kvex::torture {
namespace {

using test::TemporaryFolder;

/// A run that lasts longer hangs.
constexpr unsigned limitInSeconds = 300;

void writeCounts(std::ostream &out, const Counts &counts) {
    out << counts.events << ' ' << counts.sessions << ' ' << counts.saves << ' ' << counts.ticks
        << ' ' << counts.removals << ' ' << counts.orders << ' ' << counts.errors << '\n';
}

void readCounts(std::istream &in, Counts &counts) {
    in >> counts.events >> counts.sessions >> counts.saves >> counts.ticks >> counts.removals >>
        counts.orders >> counts.errors;
}

/// Plays in this process. Writes each event before it takes place, and the result at the end.
void playHere(const std::filesystem::path &folder, const Event &world, const EventSource &source) {
    std::ofstream script(folder / "script");
    script << lineOf(world) << std::endl;
    Player player(world, [&](const headless::HeadlessWindow *window, const Tables &tables) {
        auto event = source(window, tables);
        if (event) {
            script << lineOf(*event) << std::endl;
        }
        return event;
    });
    player.play();
    std::ofstream result(folder / "result");
    writeCounts(result, player.watch().counts());
    result << player.watch().finding();
}

std::string endOf(int status) {
    return WIFSIGNALED(status) ? "crash: ended by signal " + std::to_string(WTERMSIG(status))
                               : "crash: ended with " + std::to_string(WEXITSTATUS(status));
}

RunResult resultOf(const std::filesystem::path &folder, int status) {
    RunResult played;
    played.script = readScript(folder / "script");
    std::ifstream result(folder / "result");
    if (result) {
        readCounts(result, played.counts);
        result.ignore();
        played.finding.assign(std::istreambuf_iterator<char>(result), {});
    }
    if (status != 0 && played.finding.empty()) {
        played.finding = endOf(status);
        played.diagnostics = host::readFile(folder / "diagnostics");
    }
    return played;
}

RunResult inAProcess(const std::function<void(const std::filesystem::path &folder)> &play) {
    const TemporaryFolder folder;
    std::cout << std::flush;
    const pid_t child = fork();
    if (child < 0) {
        throw std::runtime_error("cannot start a process");
    }
    if (child == 0) {
        alarm(limitInSeconds);
        // The databases of the run stand in the folder, which goes even when the run crashes.
        setenv("TMPDIR", folder.path().c_str(), 1);
        if (std::freopen((folder / "diagnostics").c_str(), "w", stderr) == nullptr) {
            std::_Exit(2);
        }
        play(folder.path());
        std::exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return resultOf(folder.path(), status);
}

} // namespace

RunResult playSeed(std::uint64_t seed, int events) {
    return inAProcess([&](const std::filesystem::path &folder) {
        Monkey monkey(seed, events);
        const Event world = monkey.world();
        playHere(folder, world, [&](const headless::HeadlessWindow *window, const Tables &tables) {
            return monkey.next(window, tables);
        });
    });
}

RunResult playScript(const Lines &script) {
    return inAProcess([&](const std::filesystem::path &folder) {
        std::size_t next = 1;
        playHere(folder, eventOf(script.at(0)),
                 [&](const headless::HeadlessWindow * /*window*/, const Tables & /*tables*/) {
                     return next < script.size() ? std::optional(eventOf(script[next++]))
                                                 : std::nullopt;
                 });
    });
}

} // namespace kvex::torture

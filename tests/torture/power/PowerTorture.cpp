// The power fails at any moment of a session that writes. Whoever opens the database afterwards
// finds the old rows or the new ones: the old ones before the button was pressed, the new ones once
// it had answered.
#include "tests/databases/SqliteFixture.h"
#include "tests/torture/Share.h"
#include "tests/torture/power/Crashes.h"
#include "tests/torture/storage/Snapshot.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>
#include <random>

namespace kvex::torture {
namespace {

/// How an earlier program has left the database.
enum class Journal { log, rollback, logOfACrash };

Disk prepared(const Scenario &scenario, Journal journal) {
    const test::TemporaryFolder folder;
    const std::filesystem::path file = folder / "rules.db";
    prepareDatabase(scenario, file);
    if (journal == Journal::rollback) {
        test::OtherProgram(file).run(u"PRAGMA journal_mode = DELETE");
    } else if (journal == Journal::logOfACrash) {
        test::OtherProgram other(file);
        other.run(u"UPDATE SMS_USERS SET NAME = 'only in the log'");
        Disk disk = diskOf(folder.path());
        disk.erase("rules.db-shm");
        return disk;
    }
    return diskOf(folder.path());
}

class Power {
public:
    explicit Power(std::uint64_t seed) : random_(seed) {}

    void play(const Scenario &scenario, Journal journal) {
        const test::TemporaryFolder folder;
        writeDisk(prepared(scenario, journal), folder.path());
        const Recording recording = record(scenario, folder.path());
        const std::string before = heldBy(recording.before);
        const std::string after = snapshot(folder / "rules.db");
        std::map<Disk, std::string> known;
        forEachCrash(recording, random_, [&](const Crash &crash) {
            const auto [held, isNew] = known.try_emplace(crash.disk);
            if (isNew) {
                held->second = heldBy(crash.disk);
            }
            const bool isOld = held->second == before && crash.steps < recording.stored;
            const bool isNewState = held->second == after && crash.steps > recording.pressed;
            if (!isOld && !isNewState) {
                report(scenario, recording, crash, difference(before, held->second));
            }
            ++crashes_;
        });
        states_ += known.size();
    }

    [[nodiscard]] std::uint64_t crashes() const { return crashes_; }
    [[nodiscard]] std::uint64_t states() const { return states_; }
    [[nodiscard]] std::uint64_t findings() const { return findings_; }

private:
    /// What another program finds when it opens the files.
    std::string heldBy(const Disk &disk) {
        writeDisk(disk, folder_.path());
        return snapshot(folder_ / "rules.db");
    }

    void report(const Scenario &scenario, const Recording &recording, const Crash &crash,
                const std::string &found) {
        constexpr std::uint64_t shown = 10;
        if (++findings_ <= shown) {
            std::cout << scenario.name << ", crash after step " << crash.steps << " of "
                      << recording.steps.size() << " (the button was pressed after step "
                      << recording.pressed << " and answered after step " << recording.stored
                      << "), lost: " << crash.lost << ":\n"
                      << found << std::endl;
        }
    }

    std::mt19937_64 random_;
    test::TemporaryFolder folder_;
    std::uint64_t crashes_ = 0;
    std::uint64_t states_ = 0;
    std::uint64_t findings_ = 0;
};

} // namespace
} // namespace kvex::torture

int main(int argc, char **argv) try {
    using namespace kvex::torture;
    const kvex::test::OwnLog log;
    Share share({argv, static_cast<std::size_t>(argc)}, 1);
    std::uint64_t crashes = 0;
    std::uint64_t states = 0;
    while (share.next()) {
        Power power(share.seed());
        for (const Scenario &scenario : scenarios()) {
            for (const Journal journal : {Journal::log, Journal::rollback, Journal::logOfACrash}) {
                power.play(scenario, journal);
            }
        }
        crashes += power.crashes();
        states += power.states();
        if (power.findings() > 0) {
            std::cout << "power: " << power.findings() << " of " << power.crashes()
                      << " crashes left something else\nrepeat: " << share.repeatCommand() << '\n';
            return EXIT_FAILURE;
        }
    }
    std::cout << "power: " << crashes << " crashes, " << states
              << " different states of the files, " << scenarios().size()
              << " scenarios, 0 findings\n";
    return EXIT_SUCCESS;
} catch (const std::exception &error) {
    std::fputs((std::string(error.what()) + '\n').c_str(), stderr);
    return EXIT_FAILURE;
}

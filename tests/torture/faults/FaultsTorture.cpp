// Each step that writes meets a fault at each of its points, in a process of its own. Then the user
// presses the button again. The database must hold the old rows or the new ones, and nothing else.
#include "tests/torture/Share.h"
#include "tests/torture/faults/Judge.h"
#include "tests/torture/faults/SqliteMemory.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>

namespace kvex::torture {
namespace {

/// A short share takes every point of this many.
constexpr std::uint64_t shortStride = 13;

class Sweep {
public:
    /// Plays points `first`, `first + stride`, ... of each kind in each scenario.
    void play(std::uint64_t first, std::uint64_t stride) {
        for (const Scenario &scenario : scenarios()) {
            const test::TemporaryFolder folder;
            const std::filesystem::path database = folder / "before.db";
            prepareDatabase(scenario, database);
            const Judge judge(scenario, database, folder.path());
            for (const FaultKind &kind : faultKinds()) {
                for (std::uint64_t number = first;; number += stride) {
                    const Course course =
                        playUser({scenario, kind, number}, database, folder.path());
                    report(scenario, kind, number, judge.finding(kind, course));
                    if (!course.hasStruck) {
                        break;
                    }
                    ++points_[kind.where];
                }
            }
        }
    }

    [[nodiscard]] int findings() const { return findings_; }
    void printFigures(const Share &share, bool all) const {
        std::uint64_t sum = 0;
        std::string parts;
        for (const auto &[where, count] : points_) {
            sum += count;
            parts += (parts.empty() ? "" : ", ") + where + " " + std::to_string(count);
        }
        std::cout << "faults: " << sum << (all ? " points, all there are (" : " points (") << parts
                  << ") in " << scenarios().size() << " scenarios, " << findings_ << " findings\n";
        if (findings_ > 0) {
            std::cout << "repeat: " << share.repeatCommand() << '\n';
        }
    }

private:
    void report(const Scenario &scenario, const FaultKind &kind, std::uint64_t number,
                const std::string &finding) {
        if (!finding.empty()) {
            ++findings_;
            std::cout << scenario.name << ", " << kind.where << ": " << kind.name << ", point "
                      << number << ": " << finding << std::endl;
        }
    }

    std::map<std::string, std::uint64_t> points_;
    int findings_ = 0;
};

} // namespace
} // namespace kvex::torture

int main(int argc, char **argv) try {
    using namespace kvex;
    torture::watchSqliteMemory();
    const test::OwnLog log;
    torture::Share share({argv, static_cast<std::size_t>(argc)}, 1);
    torture::Sweep sweep;
    const bool all = argc > 1 && std::string_view(argv[1]) == "--minutes";
    share.next();
    if (all) {
        sweep.play(0, 1);
    } else {
        sweep.play(share.seed() % torture::shortStride, torture::shortStride);
    }
    sweep.printFigures(share, all);
    return sweep.findings() > 0 ? EXIT_FAILURE : EXIT_SUCCESS;
} catch (const std::exception &error) {
    std::fputs((std::string(error.what()) + '\n').c_str(), stderr);
    return EXIT_FAILURE;
}

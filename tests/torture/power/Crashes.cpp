#include "tests/torture/power/Crashes.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

namespace kvex::torture {
namespace {

constexpr std::size_t sector = 512;
/// How many random losses follow each step.
constexpr int randomLosses = 3;

void put(Disk &disk, const Step &write, std::size_t from, std::size_t to) {
    std::string &file = disk[write.file];
    const auto begin = static_cast<std::size_t>(write.offset) + from;
    if (to > from) {
        file.resize(std::max(file.size(), begin + to - from));
        file.replace(begin, to - from, write.content, from, to - from);
    }
}

void apply(Disk &disk, const Step &step) {
    switch (step.call) {
    case FileCall::write:
        put(disk, step, 0, step.content.size());
        break;
    case FileCall::truncate:
        disk[step.file].resize(static_cast<std::size_t>(step.offset));
        break;
    case FileCall::remove:
        disk.erase(step.file);
        break;
    default:
        break;
    }
}

/// The ends of the write's parts, each within one sector of the file.
std::vector<std::size_t> sectorEnds(const Step &write) {
    std::vector<std::size_t> ends;
    const auto offset = static_cast<std::size_t>(write.offset);
    for (std::size_t end = sector - offset % sector; end < write.content.size(); end += sector) {
        ends.push_back(end);
    }
    ends.push_back(write.content.size());
    return ends;
}

class Machine {
public:
    Machine(const Disk &before, std::mt19937_64 &random,
            const std::function<void(const Crash &)> &examine)
        : safe_(before), random_(random), examine_(examine) {}

    void run(const Step &step) {
        ++steps_;
        if (step.call == FileCall::sync || step.syncsFolder) {
            makeSafe(step);
        } else {
            unsafe_.push_back(&step);
        }
    }

    void crash() {
        lose("nothing", [](const Step &) { return false; });
        if (unsafe_.empty()) {
            return;
        }
        lose("everything since the last sync", [](const Step &) { return true; });
        std::set<std::string_view> files;
        for (const Step *lost : unsafe_) {
            lose("one write of " + lost->file, [&](const Step &step) { return &step == lost; });
            files.insert(lost->file);
        }
        for (const std::string_view file : files) {
            lose("all writes of " + std::string(file),
                 [&](const Step &step) { return step.file == file; });
        }
        tearLast();
        for (int loss = 0; loss < randomLosses; ++loss) {
            loseAtRandom();
        }
    }

private:
    void makeSafe(const Step &end) {
        std::erase_if(unsafe_, [&](const Step *step) {
            const bool isSafe =
                step->file == end.file || (end.syncsFolder && step->call == FileCall::remove);
            if (isSafe) {
                apply(safe_, *step);
            }
            return isSafe;
        });
        apply(safe_, end);
    }

    template <class IsLost> void lose(const std::string &what, const IsLost &isLost) {
        Disk disk = safe_;
        for (const Step *step : unsafe_) {
            if (!isLost(*step)) {
                apply(disk, *step);
            }
        }
        examine_({steps_, what, std::move(disk)});
    }

    void tearLast() {
        const Step &last = *unsafe_.back();
        if (last.call != FileCall::write) {
            return;
        }
        Disk others = safe_;
        for (const Step *step : unsafe_) {
            if (step != &last) {
                apply(others, *step);
            }
        }
        for (const std::size_t end : sectorEnds(last)) {
            Disk head = others;
            put(head, last, 0, end);
            examine_({steps_, "the end of the last write", std::move(head)});
            Disk tail = others;
            put(tail, last, end, last.content.size());
            examine_({steps_, "the beginning of the last write", std::move(tail)});
        }
    }

    void loseAtRandom() {
        std::bernoulli_distribution isLost;
        Disk disk = safe_;
        for (const Step *step : unsafe_) {
            if (step->call != FileCall::write) {
                if (!isLost(random_)) {
                    apply(disk, *step);
                }
                continue;
            }
            std::size_t begin = 0;
            for (const std::size_t end : sectorEnds(*step)) {
                if (!isLost(random_)) {
                    put(disk, *step, begin, end);
                }
                begin = end;
            }
        }
        examine_({steps_, "sectors at random", std::move(disk)});
    }

    std::size_t steps_ = 0;
    Disk safe_;
    /// What a crash may take, in the order in which it was written.
    std::vector<const Step *> unsafe_;
    std::mt19937_64 &random_;
    const std::function<void(const Crash &)> &examine_;
};

} // namespace

void forEachCrash(const Recording &recording, std::mt19937_64 &random,
                  const std::function<void(const Crash &)> &examine) {
    Machine machine(recording.before, random, examine);
    machine.crash();
    for (const Step &step : recording.steps) {
        machine.run(step);
        machine.crash();
    }
}

} // namespace kvex::torture

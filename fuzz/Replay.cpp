// Plays a corpus and mutations of it to a fuzz target: NAME_replay FOLDER MUTATIONS
//
// The mutations are the same in each run. A failure names the file or the mutation, and leaves the
// input in "NAME_replay.failed" in the working directory.
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" {
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
// The sanitizers have it; a plain build does not.
__attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());
}

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Seed {
    std::string file;
    Bytes bytes;
};

/// What is played now, for the report of a crash.
struct Current {
    std::string program;
    std::string name;
    Bytes bytes;
};

Current &current() {
    static Current now;
    return now;
}

void reportFailure() {
    const std::string file = current().program + ".failed";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char *>(current().bytes.data()),
               static_cast<std::streamsize>(current().bytes.size()));
    std::cerr << current().program << ": it failed with " << current().name << "; the input is in "
              << file << std::endl;
}

[[noreturn]] void reportSignal(int signal) {
    std::cerr << "signal " << signal << '\n';
    reportFailure();
    std::_Exit(1);
}

bool play(std::string name, Bytes bytes) {
    current().name = std::move(name);
    current().bytes = std::move(bytes);
    try {
        // The copy ends where the input ends, so a sanitizer notices a read past the end.
        const Bytes exact(current().bytes);
        LLVMFuzzerTestOneInput(exact.data(), exact.size());
        return true;
    } catch (const std::exception &error) {
        std::cerr << error.what() << '\n';
    }
    reportFailure();
    return false;
}

std::vector<Seed> readCorpus(const std::filesystem::path &folder) {
    std::vector<Seed> seeds;
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream in(entry.path(), std::ios::binary);
        seeds.push_back({entry.path().string(), Bytes(std::istreambuf_iterator<char>(in), {})});
    }
    std::ranges::sort(seeds, {}, &Seed::file);
    return seeds;
}

/// A few edits: a byte, a removed piece, a piece of another seed.
class Mutator {
public:
    explicit Mutator(const std::vector<Seed> &seeds) : seeds_(seeds) {}

    Bytes next() {
        Bytes bytes = seeds_[below(seeds_.size())].bytes;
        for (std::size_t edits = 1 + below(4); edits > 0; --edits) {
            edit(bytes);
        }
        return bytes;
    }

private:
    std::size_t below(std::size_t count) { return random_() % count; }

    void edit(Bytes &bytes) {
        const std::size_t at = below(bytes.size() + 1);
        const auto place = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        constexpr std::size_t longestPiece = 24;
        switch (below(4)) {
        case 0:
            bytes.insert(place, static_cast<std::uint8_t>(random_()));
            break;
        case 1:
            if (at < bytes.size()) {
                bytes[at] = static_cast<std::uint8_t>(random_());
            }
            break;
        case 2:
            bytes.erase(place, place + static_cast<std::ptrdiff_t>(
                                           std::min(below(longestPiece), bytes.size() - at)));
            break;
        default: {
            const Bytes &other = seeds_[below(seeds_.size())].bytes;
            const auto from = other.begin() + static_cast<std::ptrdiff_t>(below(other.size() + 1));
            const auto length = std::min<std::ptrdiff_t>(
                static_cast<std::ptrdiff_t>(below(longestPiece)), other.end() - from);
            bytes.insert(place, from, from + length);
        }
        }
    }

    const std::vector<Seed> &seeds_;
    // The same numbers with every library.
    std::mt19937_64 random_{1};
};

} // namespace

int main(int argc, char **argv) {
    if (argc != 3) {
        std::cerr << "usage: NAME_replay FOLDER MUTATIONS\n";
        return 2;
    }
    current().program = std::filesystem::path(argv[0]).filename().string();
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(reportFailure);
    } else {
        for (const int signal : std::array{SIGABRT, SIGSEGV, SIGFPE, SIGBUS}) {
            std::signal(signal, reportSignal);
        }
    }

    const std::vector<Seed> seeds = readCorpus(argv[1]);
    if (seeds.empty()) {
        std::cerr << current().program << ": there is no input in " << argv[1] << '\n';
        return 1;
    }
    int failures = 0;
    for (const Seed &seed : seeds) {
        failures += play(seed.file, seed.bytes) ? 0 : 1;
    }
    const int mutations = std::atoi(argv[2]);
    Mutator mutator(seeds);
    for (int number = 1; number <= mutations && failures == 0; ++number) {
        failures += play("mutation " + std::to_string(number), mutator.next()) ? 0 : 1;
    }
    std::cout << current().program << ": " << seeds.size() << " inputs, " << mutations
              << " mutations, " << failures << " failures\n";
    return failures == 0 ? 0 : 1;
}

// The states in which a loss of power can leave the files.
#pragma once

#include "tests/torture/power/Recording.h"

#include <cstddef>
#include <functional>
#include <random>
#include <string>

namespace kvex::torture {

struct Crash {
    /// How many steps were done before the crash.
    std::size_t steps;
    /// What the crash took with it.
    std::string lost;
    Disk disk;
};

/// Calls `examine` with each crash. What a file got before its last sync is safe. Of the later
/// writes the crash takes none, all, each one alone, or those of one file. It also tears the last
/// one at each sector, from either side, and takes sectors and writes at random.
void forEachCrash(const Recording &recording, std::mt19937_64 &random,
                  const std::function<void(const Crash &)> &examine);

} // namespace kvex::torture

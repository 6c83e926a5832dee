#include "bench/support/BenchFolder.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace kvex::bench {
namespace {

std::filesystem::path parentFor(Place place) {
    return place == Place::memory ? "/dev/shm" : std::filesystem::temp_directory_path();
}

} // namespace

BenchFolder::BenchFolder(Place place) {
    std::string name = (parentFor(place) / "kvex-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no folder for the benchmarks' files: " + name);
    }
    path_ = name;
}

BenchFolder::~BenchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

} // namespace kvex::bench

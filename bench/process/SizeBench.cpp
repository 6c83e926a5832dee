// The size of the stripped component.
#include "bench/process/Processes.h"
#include "bench/support/BenchFolder.h"
#include "bench/support/Timing.h"

namespace kvex::bench {
namespace {

void componentSize(benchmark::State &state) {
    const BenchFolder folder(Place::memory);
    const std::filesystem::path stripped = folder.path() / "component.so";
    for (auto _ : state) {
        state.SetIterationTime(
            runProgram("strip", {"-o", stripped.string(), KVEX_COMPONENT}).seconds);
        report(state, static_cast<double>(std::filesystem::file_size(stripped)));
    }
}
BENCHMARK(componentSize)->Name("component_size")->Arg(1)->UseManualTime()->Iterations(1);

} // namespace
} // namespace kvex::bench

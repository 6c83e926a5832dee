// How benchmarks measure time, and at which sizes.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>

namespace kvex::bench {

/// Measures one iteration from its construction on, for benchmarks with manual time.
class Stopwatch {
public:
    explicit Stopwatch(benchmark::State &state) : state_(state) {}

    /// Stops the time of the iteration.
    void stop() {
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start_;
        state_.SetIterationTime(passed.count());
    }

private:
    benchmark::State &state_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// The benchmark's first argument.
[[nodiscard]] inline std::size_t sizeOf(const benchmark::State &state) {
    return static_cast<std::size_t>(state.range(0));
}

/// Reports a value other than a time, such as bytes. The table then compares this value.
inline void report(benchmark::State &state, double value) {
    state.counters["value"] = value;
}

/// Manual time, at the numbers of rules that most figures have.
inline void atEverySize(benchmark::internal::Benchmark *benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond);
    for (const int rules : {100, 1'000, 10'000, 100'000}) {
        benchmark->Arg(rules);
    }
}

} // namespace kvex::bench

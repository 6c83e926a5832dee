// The main function of all benchmark programs.
#include <benchmark/benchmark.h>

#include <exception>
#include <iostream>

int main(int argc, char **argv) {
    try {
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
            return 1;
        }
        benchmark::RunSpecifiedBenchmarks();
        benchmark::Shutdown();
        return 0;
    } catch (const std::exception &error) {
        std::cerr << "a benchmark failed: " << error.what() << '\n';
        return 1;
    }
}

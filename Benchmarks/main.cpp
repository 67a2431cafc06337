#include <cstring>

#include <benchmark/benchmark.h>

#include "Benchmarks/Benchmarks.h"

/// Takes the options of the benchmark library, and `--million` for a ledger of that size too.
int main(int argc, char** argv) {
    using namespace oakfen::benchmarks;
    bool withMillion = false;
    int kept = 1;
    for (int index = 1; index < argc; ++index) {
        if (std::strcmp(argv[index], "--million") == 0) {
            withMillion = true;
        } else {
            argv[kept++] = argv[index];
        }
    }
    benchmark::Initialize(&kept, argv);
    if (benchmark::ReportUnrecognizedArguments(kept, argv)) {
        return 1;
    }
    for (const std::size_t count : {10'000U, 100'000U}) {
        registerLedgerBenchmarks(count);
        registerStatementBenchmarks(count);
    }
    if (withMillion) {
        registerLedgerBenchmarks(1'000'000);
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

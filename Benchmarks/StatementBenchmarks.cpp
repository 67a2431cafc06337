#include <cstdint>
#include <string>

#include <benchmark/benchmark.h>

#include "Benchmarks/Benchmarks.h"
#include "Benchmarks/Statements.h"

namespace oakfen::benchmarks {

namespace {

void timeParsing(benchmark::State& state, ImportFormat format, std::size_t lines) {
    const std::string text = makeStatement(format, lines);
    const Calendar calendar = Calendar::utc();
    if (StatementImporter::parse(text, format, calendar).size() != lines) {
        state.SkipWithError("Some lines were not read.");
    }
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(StatementImporter::parse(text, format, calendar));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(lines));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

} // namespace

void registerStatementBenchmarks(std::size_t lines) {
    const auto add = [lines](const char* name, ImportFormat format) {
        benchmark::RegisterBenchmark((std::string(name) + "/" + std::to_string(lines)).c_str(),
                                     timeParsing, format, lines)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    add("statement, CSV", ImportFormat::csv);
    add("statement, QIF", ImportFormat::qif);
    add("statement, OFX", ImportFormat::ofx);
}

} // namespace oakfen::benchmarks

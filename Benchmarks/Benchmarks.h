#pragma once

#include <cstddef>

namespace oakfen::benchmarks {

// Each registers its benchmarks for a ledger, or a statement, of that many lines.
void registerLedgerBenchmarks(std::size_t count);
void registerRegisterBenchmarks(std::size_t count);
void registerFigureBenchmarks(std::size_t count);
void registerStatementBenchmarks(std::size_t lines);
void registerScreenBenchmarks(std::size_t count);

/// Before the application ends, whose window may still be open.
void closeScreens();

} // namespace oakfen::benchmarks

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "Benchmarks/Benchmarks.h"
#include "Benchmarks/BigLibrary.h"
#include "Benchmarks/References.h"
#include "Oakfen/Views/RegisterFilter.h"
#include "Oakfen/Views/RegisterSort.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/Models/LibraryCoding.h"

namespace oakfen::benchmarks {

namespace {

void timePass(benchmark::State& state, std::size_t count) {
    const Library& library = bigLibrary(count);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(passOverRecords(library));
    }
}

void timeCopyToText(benchmark::State& state, std::size_t count) {
    const Library& library = bigLibrary(count);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(copyToText(library));
    }
}

void timeEncode(benchmark::State& state, std::size_t count) {
    const Library& library = bigLibrary(count);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(encodeLibrary(library));
    }
}

void timeDecode(benchmark::State& state, std::size_t count) {
    const std::string text = encodeLibrary(bigLibrary(count));
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(decodeLibrary(text));
    }
}

void timeOpen(benchmark::State& state, std::size_t count) {
    const std::string text = encodeLibrary(bigLibrary(count));
    const Calendar calendar = Calendar::utc();
    for ([[maybe_unused]] const auto _ : state) {
        const LibraryIndex index(decodeLibrary(text), bigLibraryNow(), calendar);
        benchmark::DoNotOptimize(index.netWorth());
    }
}

void timeIndex(benchmark::State& state, std::size_t count) {
    const Library& library = bigLibrary(count);
    const Calendar calendar = Calendar::utc();
    for ([[maybe_unused]] const auto _ : state) {
        const LibraryIndex index(library, bigLibraryNow(), calendar);
        benchmark::DoNotOptimize(index.netWorth());
    }
}

/// What the store does for an edit: a copy, a change in it, the comparison, a new index in the
/// old one's place.
template <typename Change>
void timeEdit(benchmark::State& state, std::size_t count, Change&& change) {
    const Calendar calendar = Calendar::utc();
    Library library = bigLibrary(count);
    auto index = std::make_unique<LibraryIndex>(library, bigLibraryNow(), calendar);
    for ([[maybe_unused]] const auto _ : state) {
        Library after = library;
        change(after);
        if (after == library) {
            state.SkipWithError("The edit changed nothing.");
            break;
        }
        library = after;
        index = std::make_unique<LibraryIndex>(std::move(after), bigLibraryNow(), calendar);
        benchmark::DoNotOptimize(index->netWorth());
    }
}

void timeEditOfAnAmount(benchmark::State& state, std::size_t count) {
    timeEdit(state, count, [count](Library& library) {
        library.transactions.edit(count / 2).amount += Decimal::cents(1);
    });
}

/// A line from the past at the end of the document: its account is out of order.
void timeEntryOutOfOrder(benchmark::State& state, std::size_t count) {
    timeEdit(state, count, [count](Library& library) {
        Transaction entry = library.transactions[count / 2];
        entry.id = UUID::random();
        entry.accountID = library.accounts.front().id;
        library.transactions.push_back(std::move(entry));
    });
}

/// What the register of the fullest account does with its rows when somebody types a word in the
/// search field: those that hold it, by payee. The rows themselves are timed apart.
void timeSearchInRegister(benchmark::State& state, std::size_t count) {
    const Library& library = bigLibrary(count);
    const LibraryIndex index(library, bigLibraryNow(), Calendar::utc());
    const std::vector<RegisterRow> rows = index.registerRows(library.accounts.front().id);
    RegisterSorter sorter;
    for ([[maybe_unused]] const auto _ : state) {
        RegisterSearch search("café");
        std::vector<const RegisterRow*> shown;
        for (const RegisterRow& row : rows) {
            if (search.finds(row)) {
                shown.push_back(&row);
            }
        }
        sorter.sort(shown, {RegisterColumn::payee, true});
        benchmark::DoNotOptimize(shown);
    }
}

void timeSortOfRegister(benchmark::State& state, std::size_t count) {
    const Library& library = bigLibrary(count);
    const LibraryIndex index(library, bigLibraryNow(), Calendar::utc());
    const std::vector<RegisterRow> rows = index.registerRows(library.accounts.front().id);
    RegisterSorter sorter;
    for ([[maybe_unused]] const auto _ : state) {
        std::vector<const RegisterRow*> shown;
        for (const RegisterRow& row : rows) {
            shown.push_back(&row);
        }
        sorter.sort(shown, {RegisterColumn::payee, true});
        benchmark::DoNotOptimize(shown);
    }
}

/// The rows that follow an edit: the first that a new index is asked for.
void timeRegisterRows(benchmark::State& state, std::size_t count) {
    const Library& library = bigLibrary(count);
    const Calendar calendar = Calendar::utc();
    for ([[maybe_unused]] const auto _ : state) {
        state.PauseTiming();
        auto index = std::make_unique<LibraryIndex>(library, bigLibraryNow(), calendar);
        state.ResumeTiming();
        std::vector<RegisterRow> rows = index->registerRows(library.accounts.front().id);
        benchmark::DoNotOptimize(rows);
        state.PauseTiming();
        rows.clear();
        index.reset();
        state.ResumeTiming();
    }
}

void timePayees(benchmark::State& state, std::size_t count) {
    const Library& library = bigLibrary(count);
    const Calendar calendar = Calendar::utc();
    for ([[maybe_unused]] const auto _ : state) {
        state.PauseTiming();
        auto index = std::make_unique<LibraryIndex>(library, bigLibraryNow(), calendar);
        state.ResumeTiming();
        benchmark::DoNotOptimize(index->payees().size());
        state.PauseTiming();
        index.reset();
        state.ResumeTiming();
    }
}

} // namespace

void registerLedgerBenchmarks(std::size_t count) {
    const auto add = [count](const char* name, void (*work)(benchmark::State&, std::size_t)) {
        benchmark::RegisterBenchmark((std::string(name) + "/" + std::to_string(count)).c_str(),
                                     work, count)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    add("reference: pass over the records", timePass);
    add("reference: copy to text", timeCopyToText);
    add("encode", timeEncode);
    add("decode", timeDecode);
    add("open", timeOpen);
    add("index", timeIndex);
    add("edit of an amount", timeEditOfAnAmount);
    add("entry out of order", timeEntryOutOfOrder);
    add("register rows", timeRegisterRows);
    add("register, search", timeSearchInRegister);
    add("register, sort by payee", timeSortOfRegister);
    add("payees after an edit", timePayees);
}

} // namespace oakfen::benchmarks

#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "Benchmarks/Benchmarks.h"
#include "Benchmarks/BigLibrary.h"
#include "Oakfen/Views/RegisterFilter.h"
#include "Oakfen/Views/RegisterTable.h"
#include "Oakfen/Views/TableChanges.h"
#include "Oakfen/Views/TableSort.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen::benchmarks {

namespace {

/// The big ledger with all of its entries in one account: the longest register there can be.
Library oneAccountLibrary(std::size_t count) {
    Library library = bigLibrary(count);
    const UUID account = library.accounts.front().id;
    for (std::size_t index = 0; index < library.transactions.size(); ++index) {
        Transaction& entry = library.transactions.edit(index);
        entry.accountID = account;
        entry.transferAccountID.reset();
        entry.transferID.reset();
    }
    return library;
}

LibraryIndex indexOf(const Library& library) {
    return {library, bigLibraryNow(), Calendar::utc()};
}

/// When the register opens.
void timeRows(benchmark::State& state, std::size_t count) {
    const Library library = oneAccountLibrary(count);
    const LibraryIndex index = indexOf(library);
    for ([[maybe_unused]] const auto _ : state) {
        benchmark::DoNotOptimize(index.registerRows(library.accounts.front().id));
    }
}

void timeRowsAfterAnEdit(benchmark::State& state, std::size_t count) {
    const Library before = oneAccountLibrary(count);
    Library after = before;
    after.transactions.edit(count / 2).amount += Decimal::cents(1);
    const LibraryIndex first = indexOf(before);
    const LibraryIndex second = indexOf(after);
    const UUID account = before.accounts.front().id;
    std::vector<RegisterRow> rows = first.registerRows(account);
    bool isEdited = false;
    for ([[maybe_unused]] const auto _ : state) {
        const LibraryIndex& index = isEdited ? first : second;
        index.updateRegisterRows(rows, account, isEdited ? second : first);
        isEdited = !isEdited;
        benchmark::DoNotOptimize(rows);
    }
}

/// What the register does with its rows: those that hold the searched word, if any, in their order.
void timeShown(benchmark::State& state, std::size_t count, std::string_view term,
               std::string_view column) {
    const Library library = oneAccountLibrary(count);
    const LibraryIndex index = indexOf(library);
    const std::vector<RegisterRow> rows = index.registerRows(library.accounts.front().id);
    TableSorter<RegisterRow> sorter;
    for ([[maybe_unused]] const auto _ : state) {
        RegisterSearch search(term);
        std::vector<const RegisterRow*> shown;
        for (const RegisterRow& row : rows) {
            if (!search.isActive() || search.finds(row)) {
                shown.push_back(&row);
            }
        }
        sorter.sort(shown, *columnNamed(registerColumns(false), column), true);
        benchmark::DoNotOptimize(shown);
    }
}

} // namespace

void registerRegisterBenchmarks(std::size_t count) {
    const auto add = [count](const char* name, auto&& work) {
        benchmark::RegisterBenchmark((std::string(name) + "/" + std::to_string(count)).c_str(),
                                     work)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    const auto shown = [count](std::string_view term, std::string_view column) {
        return [=](benchmark::State& state) { timeShown(state, count, term, column); };
    };
    add("register opens", [count](benchmark::State& state) { timeRows(state, count); });
    add("register after an edit",
        [count](benchmark::State& state) { timeRowsAfterAnEdit(state, count); });
    add("register, search a word", shown("café", "date"));
    add("register, search an amount", shown("12.5", "date"));
    add("register, sort by date", shown("", "date"));
    add("register, sort by payee", shown("", "payee"));
    add("register, sort by balance", shown("", "balance"));
}

} // namespace oakfen::benchmarks

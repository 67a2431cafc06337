#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "Benchmarks/Benchmarks.h"
#include "Benchmarks/BigLibrary.h"
#include "Oakfen/Views/Register/FindRows.h"
#include "Oakfen/Views/Register/FindSearch.h"
#include "Oakfen/Views/Register/RegisterFilter.h"
#include "Oakfen/Views/Register/RegisterRows.h"
#include "Oakfen/Views/Register/RegisterTable.h"
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

/// When the search through all accounts opens.
void timeFindRows(benchmark::State& state, std::size_t count) {
    const auto index =
        std::make_shared<const LibraryIndex>(bigLibrary(count), bigLibraryNow(), Calendar::utc());
    for ([[maybe_unused]] const auto _ : state) {
        FindRows rows;
        benchmark::DoNotOptimize(rows.at(index));
    }
}

/// What that search does for each letter that is typed.
void timeFound(benchmark::State& state, std::size_t count, std::string_view term) {
    const auto index =
        std::make_shared<const LibraryIndex>(bigLibrary(count), bigLibraryNow(), Calendar::utc());
    FindRows rows;
    const FindRows::SharedState all = rows.at(index);
    TableSorter<FoundEntry> sorter;
    for ([[maybe_unused]] const auto _ : state) {
        auto entries = found(*all, term);
        sorter.sort(entries, *columnNamed(foundColumns(), "date"), false);
        benchmark::DoNotOptimize(entries);
    }
}

using RegisterTable = std::shared_ptr<const Table<RegisterRow>>;

/// All rows in the order in which a register opens.
RegisterTable tableOf(const RegisterRows::State& rows) {
    const Columns<RegisterRow>& columns = registerColumns(false);
    std::vector<const RegisterRow*> shown;
    shown.reserve(rows->size());
    for (const RegisterRow& row : *rows) {
        shown.push_back(&row);
    }
    TableSorter<RegisterRow>().sort(shown, *columnNamed(columns, "date"), false);
    return std::make_shared<const Table<RegisterRow>>(columns, std::move(shown), rows,
                                                      reachesOf<RegisterRow>(columns, *rows),
                                                      CellContext{"CAD", Calendar::utc()});
}

/// From the index to what the window is told of: `change` edits the entry in the middle, and what
/// follows is the way there and back in turn.
void timeShownEdit(benchmark::State& state, std::size_t count, void (*change)(Transaction&)) {
    const Library before = oneAccountLibrary(count);
    Library after = before;
    change(after.transactions.edit(count / 2));
    const auto index = [](const Library& library) {
        return std::make_shared<const LibraryIndex>(library, bigLibraryNow(), Calendar::utc());
    };
    const auto first = index(before);
    const auto second = index(after);
    RegisterRows rows(before.accounts.front().id);
    static_cast<void>(rows.at(first));
    RegisterTable earlier = tableOf(rows.at(second));
    bool isEdited = true;
    for ([[maybe_unused]] const auto _ : state) {
        isEdited = !isEdited;
        RegisterTable shown = keepingEqual(earlier, tableOf(rows.at(isEdited ? second : first)));
        benchmark::DoNotOptimize(changesBetween(*earlier, *shown));
        earlier = std::move(shown);
    }
}

void timeShownMark(benchmark::State& state, std::size_t count) {
    timeShownEdit(state, count, [](Transaction& entry) {
        const bool isCleared = entry.cleared != ClearedState::uncleared;
        entry.cleared = isCleared ? ClearedState::uncleared : ClearedState::cleared;
    });
}

void timeShownAmount(benchmark::State& state, std::size_t count) {
    timeShownEdit(state, count, [](Transaction& entry) { entry.amount += Decimal::cents(1); });
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
    add("register shows a mark", [count](benchmark::State& state) { timeShownMark(state, count); });
    add("register shows an amount",
        [count](benchmark::State& state) { timeShownAmount(state, count); });
    add("register, search a word", shown("café", "date"));
    add("register, search an amount", shown("12.5", "date"));
    add("register, sort by date", shown("", "date"));
    add("register, sort by payee", shown("", "payee"));
    add("register, sort by balance", shown("", "balance"));
    const auto found = [count](std::string_view term) {
        return [=](benchmark::State& state) { timeFound(state, count, term); };
    };
    add("find in all accounts opens",
        [count](benchmark::State& state) { timeFindRows(state, count); });
    add("find in all accounts, a word", found("café"));
    add("find in all accounts, an amount", found("12.5"));
}

} // namespace oakfen::benchmarks

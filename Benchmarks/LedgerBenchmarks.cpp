#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "Benchmarks/Benchmarks.h"
#include "Benchmarks/BigLibrary.h"
#include "Benchmarks/References.h"
#include "OakfenCore/Importers/DuplicateFinder.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/LibraryOperations/ScheduledTransactions.h"
#include "OakfenCore/LibraryStore/History.h"
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

/// A long day of ticking: what the history adds to each edit, and what it holds in the end.
void timeTicks(benchmark::State& state, std::size_t count) {
    constexpr std::size_t ticks = 5000;
    for ([[maybe_unused]] const auto _ : state) {
        History history;
        Library library = bigLibrary(count);
        for (std::size_t number = 0; number < ticks; ++number) {
            const Library before = library;
            Transaction& entry = library.transactions.edit(number * 7919 % count);
            entry.cleared = entry.cleared == ClearedState::cleared ? ClearedState::uncleared
                                                                   : ClearedState::cleared;
            history.record("Mark Cleared", before, library, History::Kind::edit);
        }
        // A single step can lead back over the whole ledger, and then it is as large as that.
        const std::size_t wholeLedger = 2 * count * sizeof(Transaction);
        if (history.size() > std::max(History::defaultCapacity, wholeLedger)) {
            state.SkipWithError("The history holds more than it may.");
            break;
        }
    }
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

/// What opening a ledger that lay untouched for a month does: every reminder has fallen due once.
void timeCatchUp(benchmark::State& state, std::size_t count) {
    constexpr std::size_t reminders = 75;
    const Calendar calendar = Calendar::utc();
    Library library = bigLibrary(count);
    for (std::size_t number = 0; number < reminders; ++number) {
        ScheduledTransaction reminder{.id = UUID::random(),
                                      .payee = "Reminder " + std::to_string(number),
                                      .accountID = library.accounts[0].id,
                                      .amount = Decimal::cents(-1000),
                                      .nextDate = calendar.addingDays(bigLibraryNow(), -7),
                                      .autoEnter = true};
        if (number % 3 == 0) {
            reminder.transferAccountID = library.accounts[1].id;
        }
        library.scheduled.push_back(std::move(reminder));
    }
    for ([[maybe_unused]] const auto _ : state) {
        Library after = library;
        if (processAutoEnter(after, bigLibraryNow(), calendar) != reminders) {
            state.SkipWithError("Another number of reminders was entered.");
            break;
        }
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

/// A statement with a line for each entry of the ledger.
void timeDuplicates(benchmark::State& state, std::size_t count) {
    std::vector<const Transaction*> entries;
    std::vector<ImportedTransaction> lines;
    for (const Transaction& entry : bigLibrary(count).transactions) {
        entries.push_back(&entry);
        lines.push_back({.date = entry.date, .payee = entry.payee, .amount = entry.amount});
    }
    const Calendar calendar = Calendar::utc();
    for ([[maybe_unused]] const auto _ : state) {
        const DuplicateFinder finder(entries, calendar);
        std::size_t duplicates = 0;
        for (const ImportedTransaction& line : lines) {
            duplicates += finder.match(line) != nullptr ? 1U : 0U;
        }
        if (duplicates != lines.size()) {
            state.SkipWithError("A line was not found again.");
            break;
        }
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
    add("history of 5000 ticks", timeTicks);
    add("entry out of order", timeEntryOutOfOrder);
    add("catch-up of 75 reminders", timeCatchUp);
    add("payees after an edit", timePayees);
    add("duplicates among as many lines", timeDuplicates);
}

} // namespace oakfen::benchmarks

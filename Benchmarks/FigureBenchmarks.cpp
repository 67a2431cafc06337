#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "Benchmarks/Benchmarks.h"
#include "Benchmarks/BigLibrary.h"
#include "OakfenCore/LibraryIndex/NetWorthSeries.h"
#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "OakfenCore/Models/Money.h"

namespace oakfen::benchmarks {

namespace {

constexpr double secondsPerDay = 86400;
constexpr std::size_t budgets = 60;
constexpr std::size_t securities = 30;
constexpr int yearsOfInvesting = 20;

/// Within the last month that is full of entries.
Date today() {
    return bigLibraryNow().adding(-1.5 * secondsPerDay);
}

DateInterval thisMonth() {
    return interval(DateRangePreset::thisMonth, today(), Calendar::utc());
}

/// A price a week, and shares bought once a month; now and then some are sold.
void addSecurity(Library& library, std::size_t number) {
    Security security{.id = UUID::random(), .name = "Fund " + std::to_string(number)};
    const auto cents = static_cast<std::int64_t>(1000 + 137 * number);
    constexpr int weeks = yearsOfInvesting * 52;
    for (int week = 0; week <= weeks; ++week) {
        security.price = Decimal::cents(cents + 3 * week);
        security.priceHistory.push_back(
            {bigLibraryNow().adding((week - weeks) * 7 * secondsPerDay), security.price});
    }
    const Account& account = library.accounts[number % 2 == 0 ? 9 : 10]; // those that invest
    for (int month = 0; month < yearsOfInvesting * 12; ++month) {
        library.investmentTransactions.push_back(
            {.id = UUID::random(),
             .accountID = account.id,
             .securityID = security.id,
             .date = bigLibraryNow().adding((month - yearsOfInvesting * 12) * 30 * secondsPerDay),
             .action = month % 10 == 9 ? InvestmentAction::sell : InvestmentAction::buy,
             .shares = Decimal::make(12345 + month, -4),
             .price = Decimal::cents(cents + 13 * month),
             .commission = Decimal::cents(995)});
    }
    library.securities.push_back(std::move(security));
}

/// The big ledger with all that a dashboard looks at besides: budgets, holdings and reminders.
Library householdLibrary(std::size_t count) {
    Library library = bigLibrary(count);
    for (std::size_t number = 0; number < budgets; ++number) {
        library.budget[library.categories[number].id] = Decimal(500);
    }
    for (std::size_t number = 0; number < securities; ++number) {
        addSecurity(library, number);
    }
    for (int number = 0; number < 40; ++number) {
        library.scheduled.push_back({.id = UUID::random(),
                                     .payee = "Bill " + std::to_string(number),
                                     .accountID = library.accounts.front().id,
                                     .amount = Decimal::cents(-1000),
                                     .nextDate = today().adding(number * secondsPerDay)});
    }
    return library;
}

using Question = std::size_t (*)(const LibraryIndex& index);

std::size_t askSpendingOfTheMonth(const LibraryIndex& index) {
    return spendingByCategory(index, thisMonth(), true).size();
}

std::size_t askCashFlowOfTheYear(const LibraryIndex& index) {
    const Calendar calendar = Calendar::utc();
    return cashFlow(index, interval(DateRangePreset::last12Months, today(), calendar), calendar)
        .size();
}

std::size_t askActuals(const LibraryIndex& index) {
    const DateInterval month = thisMonth();
    std::size_t overBudget = 0;
    for (const auto& [id, budget] : index.library().budget) {
        overBudget += actual(index, id, month, false) > budget ? 1U : 0U;
    }
    return overBudget;
}

std::size_t askNetWorthSeries(const LibraryIndex& index) {
    return netWorthSeries(index, 12, Calendar::utc()).size();
}

std::size_t askForAlerts(const LibraryIndex& index) {
    std::size_t alerts = index.uncategorizedCount() > 0 ? 1 : 0;
    for (const Account* account : index.openAccounts()) {
        alerts += index.balance(account->id).isNegative() ? 1U : 0U;
    }
    return alerts + askActuals(index);
}

std::size_t askForUpcomingBills(const LibraryIndex& index) {
    const Date horizon = Calendar::utc().addingDays(today(), 14);
    return static_cast<std::size_t>(
        std::count_if(index.library().scheduled.begin(), index.library().scheduled.end(),
                      [&](const ScheduledTransaction& bill) { return bill.nextDate <= horizon; }));
}

std::size_t askForRecentEntries(const LibraryIndex& index) {
    constexpr std::size_t shown = 7;
    std::vector<const Transaction*> latest;
    for (const Transaction& entry : index.library().transactions) {
        if (latest.size() == shown && entry.date <= latest.back()->date) {
            continue;
        }
        const auto place = std::upper_bound(
            latest.begin(), latest.end(), entry.date,
            [](Date date, const Transaction* other) { return date > other->date; });
        latest.insert(place, &entry);
        latest.resize(std::min(latest.size(), shown));
    }
    std::size_t letters = 0;
    for (const Transaction* entry : latest) {
        letters += index.categoryDescription(*entry).size();
    }
    return letters;
}

std::size_t askForDashboard(const LibraryIndex& index) {
    const Calendar calendar = Calendar::utc();
    const DateInterval quarter = interval(DateRangePreset::last3Months, today(), calendar);
    return askNetWorthSeries(index) + (index.netWorth().isZero() ? 0 : 1) +
           cashFlow(index, quarter, calendar).size() + askSpendingOfTheMonth(index) +
           askForUpcomingBills(index) + askActuals(index) + askForAlerts(index) +
           askForRecentEntries(index);
}

/// A question put to an index that has answered none before, as after every edit.
void timeQuestion(benchmark::State& state, std::size_t count, Question ask) {
    const Library library = householdLibrary(count);
    const Calendar calendar = Calendar::utc();
    for ([[maybe_unused]] const auto _ : state) {
        state.PauseTiming();
        auto index = std::make_unique<LibraryIndex>(library, today(), calendar);
        state.ResumeTiming();
        benchmark::DoNotOptimize(ask(*index));
        state.PauseTiming();
        index.reset();
        state.ResumeTiming();
    }
}

/// An edit with the new index and all that the dashboard shows of it.
void timeDashboardAfterAnEdit(benchmark::State& state, std::size_t count) {
    Library library = householdLibrary(count);
    const Calendar calendar = Calendar::utc();
    std::unique_ptr<LibraryIndex> index;
    for ([[maybe_unused]] const auto _ : state) {
        library.transactions.edit(count / 2).amount += Decimal::cents(1);
        index = std::make_unique<LibraryIndex>(library, today(), calendar);
        benchmark::DoNotOptimize(askForDashboard(*index));
    }
}

} // namespace

void registerFigureBenchmarks(std::size_t count) {
    const auto add = [count](const char* name, auto&& work) {
        return benchmark::RegisterBenchmark(
                   (std::string(name) + "/" + std::to_string(count)).c_str(), work)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    const auto addQuestion = [&](const char* name, Question ask) {
        // A fixed number: most of the time goes into the indexes, which isn't counted.
        add(name, [=](benchmark::State& state) {
            timeQuestion(state, count, ask);
        })->Iterations(25);
    };
    addQuestion("spending of a month", askSpendingOfTheMonth);
    addQuestion("cash flow of 12 months", askCashFlowOfTheYear);
    addQuestion("actuals of 60 budgets", askActuals);
    addQuestion("net worth series, 30 holdings", askNetWorthSeries);
    add("dashboard after an edit",
        [count](benchmark::State& state) { timeDashboardAfterAnEdit(state, count); });
}

} // namespace oakfen::benchmarks

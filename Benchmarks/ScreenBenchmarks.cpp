// Whole screens as a person meets them: from the choice or the edit until the window is drawn.
#include <cmath>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QWidget>

#include "Benchmarks/Benchmarks.h"
#include "Benchmarks/BigLibrary.h"
#include "Oakfen/FigureLines.h"
#include "Oakfen/Tour/TourStage.h"
#include "OakfenCore/Models/Money.h"

namespace oakfen::benchmarks {

namespace {

constexpr double secondsPerDay = 86400;
constexpr std::size_t budgets = 60;
constexpr int reminders = 40;

/// The big ledger moved to the present day, since the window asks the system's clock; with
/// budgets, goals and reminders besides.
Library presentLibrary(std::size_t count) {
    Library library = bigLibrary(count);
    const Date now = SystemClock().now();
    const double seconds = now.secondsSinceReference - bigLibraryNow().secondsSinceReference;
    const double days = std::floor(seconds / secondsPerDay);
    for (std::size_t index = 0; index < library.transactions.size(); ++index) {
        Transaction& entry = library.transactions.edit(index);
        entry.date = entry.date.adding(days * secondsPerDay);
    }
    for (std::size_t number = 0; number < budgets; ++number) {
        library.budget[library.categories[number].id] = Decimal(500);
    }
    for (int number = 0; number < reminders; ++number) {
        library.scheduled.push_back({.id = UUID::random(),
                                     .payee = "Bill " + std::to_string(number),
                                     .accountID = library.accounts.front().id,
                                     .amount = Decimal::cents(-1000),
                                     .frequency = Frequency::weekly,
                                     .nextDate = now.adding((number - 3) * secondsPerDay)});
    }
    for (int number = 0; number < 12; ++number) {
        library.goals.push_back({.id = UUID::random(),
                                 .name = "Goal " + std::to_string(number),
                                 .symbolName = "star",
                                 .target = Decimal(1000),
                                 .saved = Decimal(10 * number)});
    }
    return library;
}

/// The program in memory with its window; made once for each ledger, as that takes long.
struct Stage {
    std::unique_ptr<TourStage> stage;
    std::size_t count = 0;
};

Stage& present() {
    static Stage stage;
    return stage;
}

TourStage& stageOf(std::size_t count) {
    Stage& shown = present();
    if (shown.count != count) {
        shown = {};
        shown = {std::make_unique<TourStage>(""), count};
        shown.stage->show(presentLibrary(count));
    }
    return *shown.stage;
}

/// Until everything that waits to be laid out and drawn has been.
void draw() {
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
    // What was left is nobody's business any more, nor part of the next figure.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void timeOpening(benchmark::State& state, std::size_t count, SidebarItem::Kind kind) {
    TourStage& stage = stageOf(count);
    for ([[maybe_unused]] const auto _ : state) {
        state.PauseTiming();
        stage.appState().setSelection(SidebarItem{SidebarItem::Kind::reports});
        draw();
        state.ResumeTiming();
        stage.appState().setSelection(SidebarItem{kind});
        draw();
    }
}

void timeLines(benchmark::State& state, std::size_t count) {
    TourStage& stage = stageOf(count);
    const Calendar& calendar = stage.calendar();
    const FigureLines figure{
        .title = "Spending",
        .interval = interval(DateRangePreset::last12Months, SystemClock().now(), calendar),
        .side = FigureLines::Side::spending};
    for ([[maybe_unused]] const auto _ : state) {
        state.PauseTiming();
        // Another screen closes the panel of the last round.
        stage.appState().setSelection(SidebarItem{SidebarItem::Kind::investing});
        stage.appState().setSelection(SidebarItem{SidebarItem::Kind::reports});
        draw();
        state.ResumeTiming();
        stage.appState().linesWanted.notify(figure);
        draw();
    }
}

void timeEdit(benchmark::State& state, std::size_t count, SidebarItem::Kind kind) {
    TourStage& stage = stageOf(count);
    stage.appState().setSelection(SidebarItem{kind});
    draw();
    const std::size_t last = stage.store().library().transactions.size() - 1;
    for ([[maybe_unused]] const auto _ : state) {
        stage.store().mutate("Edit", [&](Library& library) {
            // Of this month, so that most figures change.
            library.transactions.edit(last).amount += Decimal::cents(1);
        });
        draw();
    }
}

} // namespace

void registerScreenBenchmarks(std::size_t count) {
    using Kind = SidebarItem::Kind;
    const auto add = [count](const char* name, auto&& work) {
        benchmark::RegisterBenchmark((std::string(name) + "/" + std::to_string(count)).c_str(),
                                     work)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    const auto addOpening = [&](const char* name, Kind kind) {
        add(name, [=](benchmark::State& state) { timeOpening(state, count, kind); });
    };
    const auto addEdit = [&](const char* name, Kind kind) {
        add(name, [=](benchmark::State& state) { timeEdit(state, count, kind); });
    };
    addOpening("dashboard opens", Kind::dashboard);
    addOpening("bills, 40 reminders, opens", Kind::bills);
    addOpening("budget, 60 amounts, opens", Kind::budget);
    addOpening("goals open", Kind::goals);
    addOpening("categories open", Kind::categories);
    add("lines of a year open", [count](benchmark::State& state) { timeLines(state, count); });
    addEdit("dashboard shows an edit", Kind::dashboard);
    addEdit("bills show an edit", Kind::bills);
    addEdit("budget shows an edit", Kind::budget);
    addEdit("goals show an edit", Kind::goals);
    addEdit("categories show an edit", Kind::categories);
}

void closeScreens() {
    present() = {};
}

} // namespace oakfen::benchmarks

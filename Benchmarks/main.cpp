#include <cstdlib>
#include <cstring>

#include <benchmark/benchmark.h>

#include <QApplication>

#include "Benchmarks/Benchmarks.h"
#include "Benchmarks/BigLibrary.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "Oakfen/Widgets/Theme/WindowState.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Support/Files/FileSystem.h"
#include "OakfenCore/Support/Files/SystemFileSystem.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"

/// Takes the options of the benchmark library, and `--million` for a ledger of that size too; with
/// `--write COUNT FILE` it only writes the ledger of that size, for measuring the whole program.
int main(int argc, char** argv) {
    using namespace oakfen::benchmarks;
    if (argc == 4 && std::strcmp(argv[1], "--write") == 0) {
        const std::size_t entries = std::strtoul(argv[2], nullptr, 10);
        oakfen::writeOwnerOnly(oakfen::systemFiles(), oakfen::encodeLibrary(bigLibrary(entries)),
                               argv[3]);
        return 0;
    }
    bool withMillion = false;
    int kept = 1;
    for (int index = 1; index < argc; ++index) {
        if (std::strcmp(argv[index], "--million") == 0) {
            withMillion = true;
        } else {
            argv[kept++] = argv[index];
        }
    }
    // The screens are drawn into memory, with nobody's settings.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(kept, argv);
    oakfen::Theme::apply(application);
    const oakfen::windowState::InMemory inMemory;
    benchmark::Initialize(&kept, argv);
    if (benchmark::ReportUnrecognizedArguments(kept, argv)) {
        return 1;
    }
    for (const std::size_t count : {10'000U, 100'000U}) {
        registerLedgerBenchmarks(count);
        registerRegisterBenchmarks(count);
        registerFigureBenchmarks(count);
        registerStatementBenchmarks(count);
        registerScreenBenchmarks(count);
    }
    if (withMillion) {
        registerLedgerBenchmarks(1'000'000);
        registerRegisterBenchmarks(1'000'000);
        registerFigureBenchmarks(1'000'000);
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    closeScreens();
    return 0;
}

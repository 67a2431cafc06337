#include "Tests/OakfenCore/LibraryStore/FaultSweep.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

#include "OakfenCore/Models/LibraryCoding.h"

namespace oakfen {

namespace {

using Call = InMemoryFileSystem::Call;
using Crash = InMemoryFileSystem::Crash;
using Repeat = InMemoryFileSystem::Repeat;

/// So small that a document takes several writes.
constexpr std::size_t largestTransfer = 200;
/// Far more calls than any story makes.
constexpr int mostCalls = 1000;

struct Fault {
    std::string name;
    std::function<void(FaultyMachine&, int number, bool lastingly)> inject;
};

Fault anyCall(int error) {
    return {strerrorname_np(error), [error](FaultyMachine& machine, int number, bool lastingly) {
                // What is interrupted for ever is waited for for ever; no system does that.
                const Repeat lasting =
                    error == EINTR ? Repeat::everyOtherFromThenOn : Repeat::fromThenOn;
                machine.injectedError = error;
                machine.disk.failCall(number, error, lastingly ? lasting : Repeat::once);
            }};
}

Fault oneKind(const std::string& name, Call call) {
    return {name, [call](FaultyMachine& machine, int number, bool lastingly) {
                machine.disk.failCall(call, number, EIO,
                                      lastingly ? Repeat::fromThenOn : Repeat::once);
            }};
}

std::vector<Fault> allFaults() {
    std::vector<Fault> faults;
    for (const int error : {EIO, ENOSPC, EDQUOT, EACCES, EROFS, EINTR}) {
        faults.push_back(anyCall(error));
    }
    faults.push_back(oneKind("failing sync", Call::sync));
    faults.push_back(oneKind("failing close", Call::close));
    faults.push_back({"short write", [](FaultyMachine& machine, int number, bool lastingly) {
                          machine.shortWriting.shortenWrite(number, lastingly);
                      }});
    return faults;
}

/// Without a power cut, and all ways in which one may end.
std::vector<std::optional<Crash>> allCrashes() {
    return {std::nullopt, Crash{.keepsNames = false, .keptBytes = 0},
            Crash{.keepsNames = true, .keptBytes = 0}, Crash{.keepsNames = false, .keptBytes = 7},
            Crash{.keepsNames = true, .keptBytes = 7}};
}

/// On the disk as the run left it, the program must start, save and lose nothing.
std::vector<std::string> complaintsOfNextStart(FaultyMachine& machine,
                                               const SaveExpectation& expectation) {
    StoreBench bench(machine.disk);
    bench.clock.advance(10);
    bench.choosePlain();
    LibraryStore store(FaultyMachine::path, bench.services());
    (void)store.takeVersionsBeside();
    store.clearError();
    store.useNoPassword();
    store.saveNow();
    std::vector<std::string> result =
        complaints(machine.disk, FaultyMachine::path,
                   {.later = encodeLibrary(store.library()), .kept = expectation.kept});
    if (store.lastError()) {
        result.push_back(*store.lastError());
    }
    for (const std::string& name : machine.disk.names("/home/user/Tarnwick")) {
        if (name.ends_with(".saving")) {
            result.push_back("left behind: " + name);
        }
    }
    return result;
}

/// Gives whether anything failed.
bool run(const SaveStory& story, const FileSystemVariant& variant, const Fault& fault, int number,
         bool lastingly, const std::optional<Crash>& crash, SweepResult& into) {
    FaultyMachine machine(variant);
    machine.disk.addFolder("/home/user");
    machine.disk.setLargestTransfer(largestTransfer);
    const SaveExpectation expectation =
        story(machine, [&] { fault.inject(machine, number, lastingly); });
    const bool hasFailed = machine.hasFailed();
    machine.stopFailing();

    std::vector<std::string> found;
    if (machine.disk.openDescriptors() != 0) {
        found.emplace_back("a file was left open");
    }
    if (crash) {
        machine.disk.crash(*crash);
    }
    std::ranges::move(complaints(machine.disk, FaultyMachine::path, expectation),
                      std::back_inserter(found));
    std::ranges::move(complaintsOfNextStart(machine, expectation), std::back_inserter(found));
    for (const std::string& complaint : found) {
        into.complaints.push_back(fault.name + (lastingly ? " lastingly" : " once") +
                                  " from call " + std::to_string(number) +
                                  (crash ? ", power cut" : "") + ": " + complaint);
    }
    ++into.runs;
    into.runsWithFailures += hasFailed ? 1 : 0;
    return hasFailed;
}

} // namespace

void ShortWritingFiles::shortenWrite(int number, bool andAllLater) {
    writesUntilShort_ = number;
    andAllLater_ = andAllLater;
    hasShortened_ = false;
}

FileSystem::Result ShortWritingFiles::write(int descriptor, const char* from, std::size_t count) {
    if (writesUntilShort_ == 0 || --writesUntilShort_ > 0) {
        return FileSystemFilter::write(descriptor, from, count);
    }
    hasShortened_ = true;
    writesUntilShort_ = andAllLater_ ? 1 : 0;
    return FileSystemFilter::write(descriptor, from, (count + 1) / 2);
}

std::unique_ptr<FileSystem> unchangedFiles(FileSystem& files) {
    return std::make_unique<FileSystemFilter>(files);
}

SweepResult sweepFaults(const SaveStory& story, const FileSystemVariant& variant) {
    SweepResult result;
    for (const Fault& fault : allFaults()) {
        for (const bool lastingly : {false, true}) {
            for (const std::optional<Crash>& crash : allCrashes()) {
                int number = 1;
                while (run(story, variant, fault, number, lastingly, crash, result) &&
                       number < mostCalls) {
                    ++number;
                }
            }
        }
    }
    return result;
}

} // namespace oakfen

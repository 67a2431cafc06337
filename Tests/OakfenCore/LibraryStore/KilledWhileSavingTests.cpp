#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <random>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Support/Files/SystemFileSystem.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "Tests/OakfenCore/LibraryStore/SaveLoop/Documents.h"
#include "Tests/OakfenCore/LibraryStore/SaveOracle.h"
#include "Tests/OakfenCore/Support/Files/TemporaryFolder.h"

namespace oakfen {
namespace {

using testing::IsEmpty;

/// A program that saves one document after the other.
class SaveLoop {
public:
    explicit SaveLoop(std::string path) {
        std::array<int, 2> pipe{};
        if (::pipe(pipe.data()) != 0) {
            throw std::runtime_error("no pipe");
        }
        output_ = pipe[0];
        std::string program = OAKFEN_SAVE_LOOP_PROGRAM;
        std::array<char*, 3> arguments = {program.data(), path.data(), nullptr};
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
        ::posix_spawn_file_actions_addclose(&actions, pipe[0]);
        const int error =
            ::posix_spawn(&process_, program.c_str(), &actions, nullptr, arguments.data(), environ);
        ::posix_spawn_file_actions_destroy(&actions);
        ::close(pipe[1]);
        if (error != 0) {
            ::close(output_);
            throw std::runtime_error("the saving program did not start");
        }
    }
    ~SaveLoop() {
        if (process_ > 0) {
            (void)killed();
        }
        ::close(output_);
    }
    SaveLoop(const SaveLoop&) = delete;
    SaveLoop& operator=(const SaveLoop&) = delete;

    [[nodiscard]] bool hasBegun() const {
        char byte = 0;
        return ::read(output_, &byte, 1) == 1;
    }

    /// Lets it go on for so long, unless it ends.
    void letRun(std::chrono::microseconds time) const {
        const timespec limit = {0, std::chrono::nanoseconds(time).count()};
        pollfd output = {output_, POLLIN, 0};
        (void)::ppoll(&output, 1, &limit, nullptr);
    }

    /// Kills it; whether it was that of which it died.
    [[nodiscard]] bool killed() {
        ::kill(process_, SIGKILL);
        int status = 0;
        (void)::waitpid(std::exchange(process_, 0), &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

private:
    int output_ = -1;
    pid_t process_ = 0;
};

TEST(KilledWhileSaving, LeavesOneOfTheDocumentsWholeAndOneStrayFileAtMost) {
    const char* const isLong = std::getenv("OAKFEN_LONG_TESTS");
    const int rounds = isLong != nullptr && std::string(isLong) == "1" ? 300 : 15;
    constexpr int longestMicroseconds = 25'000;
    std::mt19937 random(20261121);
    std::uniform_int_distribution<int> microseconds(0, longestMicroseconds);
    const std::string shortText = encodeLibrary(shortLoopDocument());
    const std::string longText = encodeLibrary(longLoopDocument());
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    writeOwnerOnly(systemFiles(), longText, path);
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        SaveLoop loop(path);
        ASSERT_TRUE(loop.hasBegun());
        loop.letRun(std::chrono::microseconds(microseconds(random)));
        ASSERT_TRUE(loop.killed());
        ASSERT_THAT(complaints(systemFiles(), path,
                               {.earlier = {longText}, .later = shortText, .failureWasTold = true}),
                    IsEmpty());
    }
}

TEST(KilledWhileSaving, LeavesNothingThatTheNextSaveDoesNotClearAway) {
    const TemporaryFolder folder;
    const std::string path = folder / "Library.tarnwick";
    writeOwnerOnly(systemFiles(), encodeLibrary(shortLoopDocument()), path);
    writeOwnerOnly(systemFiles(), "half a docu", folder / ".Library.tarnwick.saving");
    StoreBench bench(systemFiles());
    bench.choosePlain();
    LibraryStore store(path, bench.services());
    EXPECT_EQ(store.library(), shortLoopDocument());
    store.saveNow();
    std::vector<std::string> names;
    (void)systemFiles().list(folder.path(), names);
    EXPECT_THAT(names, testing::ElementsAre("Library.tarnwick"));
}

} // namespace
} // namespace oakfen

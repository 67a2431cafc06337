#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include "OakfenCore/Support/Files/FileCalls.h"

namespace oakfen {
namespace {

using fileCalls::failure;

std::string reasonFor(int code, std::string_view what = "couldn’t be opened") {
    const std::string text = failure("/home/ann/a.csv", what, code).localizedDescription();
    const std::string before = "“a.csv” " + std::string(what) + ": ";
    EXPECT_EQ(text.substr(0, before.size()), before);
    return text.substr(before.size());
}

TEST(FileError, SaysWhatItMeansForThePerson) {
    EXPECT_EQ(reasonFor(ENOSPC), "the disk is full");
    EXPECT_EQ(reasonFor(EACCES), "you don’t have permission");
    EXPECT_EQ(reasonFor(EPERM), "you don’t have permission");
    EXPECT_EQ(reasonFor(EROFS), "it is on a disk that can only be read");
    EXPECT_EQ(reasonFor(ESTALE), "its disk isn’t connected");
}

TEST(FileError, TellsAFileThatIsMissingFromAFolderThatIs) {
    EXPECT_EQ(reasonFor(ENOENT), "it isn’t there");
    EXPECT_EQ(reasonFor(ENOENT, fileCalls::couldNotBeSaved), "its folder is gone");
}

TEST(FileError, NeverUsesTheWordsOfTheSystem) {
    constexpr int mostCodes = 200;
    for (int code = -1; code < mostCodes; ++code) {
        const std::string reason = reasonFor(code);
        const char* const system = strerrordesc_np(code);
        EXPECT_FALSE(reason.empty()) << code;
        EXPECT_TRUE(system == nullptr || reason.find(system) == std::string::npos) << reason;
    }
    EXPECT_EQ(reasonFor(ELOOP), "its links lead round in a circle");
    EXPECT_EQ(reasonFor(EXFULL), "error 54 of the system");
}

TEST(FileError, KeepsTheCode) {
    EXPECT_EQ(failure("a", "couldn’t be read", EIO).code(), EIO);
}

} // namespace
} // namespace oakfen

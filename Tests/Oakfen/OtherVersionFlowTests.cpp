#include "Oakfen/OtherVersionFlow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Oakfen/TerminationFlow.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using ::testing::HasSubstr;
using testing::makeAccount;
using ::testing::StartsWith;
using testing::TestEnvironment;

class OtherVersionFlowTest : public ::testing::Test {
protected:
    static constexpr std::size_t keepThis = 0;
    static constexpr std::size_t openOther = 1;

    OtherVersionFlowTest() { test.panels.holdsAnswers = true; }

    static const std::string& theirs() {
        static const std::string bytes = [] {
            Library library{.currencyCode = "CAD"};
            upsert(library, makeAccount("From elsewhere"));
            return encodeLibrary(library);
        }();
        return bytes;
    }
    void writeElsewhere(const std::string& bytes = theirs()) {
        test.files.addFile(TestEnvironment::dataFile, bytes);
    }
    void edit(const std::string& name = "Everyday") {
        test.store->mutate("New Account",
                           [&](Library& library) { upsert(library, makeAccount(name)); });
    }
    void letTheSaveCome() {
        test.scheduler.advance(1);
        test.scheduler.runBackground();
    }
    void collide() {
        writeElsewhere();
        edit();
        letTheSaveCome();
    }
    void answer(std::optional<std::size_t> choice) {
        test.panels.choice = choice;
        const auto reply = test.panels.pending.back();
        test.panels.pending.clear();
        reply();
    }
    [[nodiscard]] std::size_t questions() const { return test.panels.choiceRequests.size(); }
    [[nodiscard]] std::string onDisk() { return readFile(test.files, TestEnvironment::dataFile); }
    [[nodiscard]] std::string noticeText() const {
        return test.appState->notice() ? test.appState->notice()->text : "";
    }

    /// As the button of the notice does, which goes first.
    void ask() {
        const auto action = test.appState->notice()->action;
        test.appState->dismissNotice();
        action();
    }

    TestEnvironment test;
    bool hasWrittenAgain = false;
};

TEST_F(OtherVersionFlowTest, AsksOnceWithTheErrorInTheQuestion) {
    collide();
    ASSERT_EQ(questions(), 1U);
    const ChoiceRequest& request = test.panels.choiceRequests.front();
    EXPECT_THAT(request.message,
                StartsWith("Couldn’t save: “Library.tarnwick” was changed by another program."));
    ASSERT_EQ(request.choices.size(), 2U);
    EXPECT_EQ(request.choices[0].title, "Keep This Version");
    EXPECT_EQ(request.choices[1].title, "Open the Other Version");
    EXPECT_EQ(request.cancelTitle, "Cancel");
    // No alert with the same text follows.
    EXPECT_FALSE(test.store->lastError());
    edit("Second");
    letTheSaveCome();
    EXPECT_EQ(questions(), 1U);
}

TEST_F(OtherVersionFlowTest, KeepsThisVersionAndSaysWhereTheOtherIs) {
    collide();
    answer(keepThis);
    EXPECT_EQ(onDisk(), encodeLibrary(test.library()));
    EXPECT_THAT(noticeText(), HasSubstr("Library.other-"));
    EXPECT_FALSE(test.store->isChangedElsewhere());
}

TEST_F(OtherVersionFlowTest, OpensTheOtherVersionWithAWayBack) {
    collide();
    const Library before = test.library();
    answer(openOther);
    EXPECT_EQ(encodeLibrary(test.library()), theirs());
    test.undoManager->undo();
    EXPECT_EQ(test.library(), before);
}

TEST_F(OtherVersionFlowTest, AsksAgainWithTheReasonWhenTheOtherVersionCannotBeOpened) {
    collide();
    writeElsewhere("OAKFEN-ENC-3 sealed");
    answer(openOther);
    ASSERT_EQ(questions(), 2U);
    EXPECT_THAT(test.panels.choiceRequests.back().message,
                StartsWith("The other version is protected by a password."));
    EXPECT_EQ(onDisk(), "OAKFEN-ENC-3 sealed");
    answer(keepThis);
    EXPECT_EQ(onDisk(), encodeLibrary(test.library()));
}

TEST_F(OtherVersionFlowTest, GoesOnInMemoryAfterCancelAndOffersTheQuestionAgain) {
    collide();
    answer(std::nullopt);
    EXPECT_EQ(onDisk(), theirs());
    ASSERT_TRUE(test.appState->notice());
    EXPECT_TRUE(test.appState->notice()->stays);
    EXPECT_EQ(test.appState->notice()->actionTitle, "Decide…");
    edit("Second");
    letTheSaveCome();
    EXPECT_EQ(questions(), 1U);
    test.appState->notice()->action();
    EXPECT_EQ(questions(), 2U);
    answer(keepThis);
    EXPECT_EQ(onDisk(), encodeLibrary(test.library()));
}

TEST_F(OtherVersionFlowTest, AsksOnceMoreWhenYetAnotherVersionComesBeforeThisOneIsSaved) {
    collide();
    // Changes the file at the moment of the copy, as a program does that writes again and again.
    const Subscription again = test.store->statusChanged.observe([this] {
        if (!test.store->isChangedElsewhere() && !std::exchange(hasWrittenAgain, true)) {
            writeElsewhere(theirs() + " ");
        }
    });
    answer(keepThis);
    ASSERT_EQ(questions(), 2U);
    EXPECT_EQ(onDisk(), theirs() + " ");
    answer(keepThis);
    EXPECT_EQ(onDisk(), encodeLibrary(test.library()));
    EXPECT_FALSE(test.store->isChangedElsewhere());
}

TEST_F(OtherVersionFlowTest, SaysThatNothingIsSavedUntilSomebodyHasDecided) {
    collide();
    answer(std::nullopt);
    test.appState->showNotice({.text = "142 transactions imported"});
    EXPECT_EQ(noticeText(), "142 transactions imported");
    test.appState->dismissNotice();
    ASSERT_TRUE(test.appState->notice());
    EXPECT_EQ(test.appState->notice()->actionTitle, "Decide…");
    ask();
    answer(keepThis);
    test.appState->dismissNotice();
    EXPECT_FALSE(test.appState->notice());
}

TEST_F(OtherVersionFlowTest, IsQuietAgainWhenTheEarlierBytesComeBack) {
    const std::string before = onDisk();
    collide();
    answer(std::nullopt);
    writeElsewhere(before);
    test.store->saveNow();
    EXPECT_FALSE(test.appState->notice());
    EXPECT_FALSE(test.store->hasUnsavedChanges());
}

TEST_F(OtherVersionFlowTest, WaitsUntilASheetIsClosed) {
    test.appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    collide();
    EXPECT_EQ(questions(), 0U);
    EXPECT_TRUE(test.store->lastError());
    test.appState->setSheet(std::nullopt);
    test.scheduler.advance(1);
    EXPECT_EQ(questions(), 1U);
}

TEST_F(OtherVersionFlowTest, TellsNothingToWhoeverFindsTheWindowLocked) {
    test.defaults.set(settings::requireAuthentication, true);
    test.appState->setUnlocked(false);
    collide();
    EXPECT_EQ(questions(), 0U);
    test.appState->setUnlocked(true);
    test.scheduler.advance(1);
    EXPECT_EQ(questions(), 1U);
}

class QuittingWithAnotherVersion : public OtherVersionFlowTest {
protected:
    int quits = 0;
    TerminationFlow termination{*test, [this] { ++quits; }};
};

TEST_F(QuittingWithAnotherVersion, AsksFirstAndQuitsOnceThisVersionIsKept) {
    edit();
    writeElsewhere();
    termination.requestQuit();
    EXPECT_EQ(quits, 0);
    ASSERT_EQ(questions(), 1U);
    answer(keepThis);
    EXPECT_EQ(quits, 1);
    EXPECT_EQ(onDisk(), encodeLibrary(test.library()));
}

TEST_F(QuittingWithAnotherVersion, StaysToShowTheOtherVersion) {
    edit();
    writeElsewhere();
    termination.requestQuit();
    answer(openOther);
    EXPECT_EQ(quits, 0);
    EXPECT_EQ(encodeLibrary(test.library()), theirs());
    termination.requestQuit();
    EXPECT_EQ(quits, 1);
}

TEST_F(QuittingWithAnotherVersion, StaysAfterCancelAndAsksAfreshTheNextTime) {
    edit();
    writeElsewhere();
    termination.requestQuit();
    answer(std::nullopt);
    EXPECT_EQ(quits, 0);
    termination.requestQuit();
    EXPECT_EQ(questions(), 2U);
    EXPECT_EQ(quits, 0);
}

TEST_F(QuittingWithAnotherVersion, JoinsTheQuestionThatStandsAlready) {
    collide();
    termination.requestQuit();
    EXPECT_EQ(questions(), 1U);
    answer(keepThis);
    EXPECT_EQ(quits, 1);
}

TEST_F(QuittingWithAnotherVersion, ASessionThatEndsOverwritesNothingAndTheNextStartSaysSo) {
    edit();
    const std::string ours = encodeLibrary(test.library());
    writeElsewhere();
    termination.quitWithoutAsking();
    EXPECT_EQ(quits, 1);
    EXPECT_EQ(onDisk(), theirs());
    test.openSession();
    ASSERT_TRUE(test.appState->alertMessage());
    EXPECT_THAT(*test.appState->alertMessage(), HasSubstr("Library.other-"));
    std::vector<std::string> kept;
    for (const std::string& name : test.files.names("/home/ann/.local/share/Tarnwick")) {
        kept.push_back(readFile(test.files, "/home/ann/.local/share/Tarnwick/" + name));
    }
    EXPECT_THAT(kept, ::testing::UnorderedElementsAre(theirs(), ours));
    test.openSession();
    EXPECT_FALSE(test.appState->alertMessage());
}

TEST_F(OtherVersionFlowTest, ASessionWithoutAnEditJustQuits) {
    test.store->saveNow();
    test.openSession();
    int quits = 0;
    TerminationFlow termination(*test, [&quits] { ++quits; });
    writeElsewhere();
    termination.requestQuit();
    EXPECT_EQ(quits, 1);
    EXPECT_EQ(questions(), 0U);
    EXPECT_EQ(onDisk(), theirs());
}

TEST_F(OtherVersionFlowTest, AFileThatHadGoneIsWrittenAgainWithAQuietNotice) {
    test.files.remove(TestEnvironment::dataFile);
    edit();
    letTheSaveCome();
    EXPECT_EQ(onDisk(), encodeLibrary(test.library()));
    EXPECT_EQ(noticeText(), "“Library.tarnwick” had gone and was written again.");
    EXPECT_EQ(questions(), 0U);
}

} // namespace
} // namespace oakfen

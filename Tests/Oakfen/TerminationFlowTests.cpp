#include "Oakfen/TerminationFlow.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "OakfenCore/LibraryOperations/Accounts.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::makeAccount;
using testing::TestEnvironment;

class TerminationFlowTest : public ::testing::Test {
protected:
    void edit() {
        test.store->mutate("New Account",
                           [](Library& library) { upsert(library, makeAccount("Everyday")); });
    }
    [[nodiscard]] bool fileHasTheEdit() {
        return readFile(test.files, TestEnvironment::dataFile).find("Everyday") !=
               std::string::npos;
    }

    TestEnvironment test;
    int quits = 0;
    TerminationFlow flow{*test, [this] { ++quits; }};
};

TEST_F(TerminationFlowTest, SavesWhatStillWaited) {
    edit();
    EXPECT_FALSE(fileHasTheEdit());
    flow.requestQuit();
    EXPECT_EQ(quits, 1);
    EXPECT_TRUE(fileHasTheEdit());
}

TEST_F(TerminationFlowTest, LetsAnExportComeToItsEnd) {
    bool isWritten = false;
    test.busyWork->run(
        "Saving…", [] {}, [] {});
    test.busyWork->run(
        "Saving…", [&] { isWritten = true; }, [] {});
    flow.requestQuit();
    flow.requestQuit();
    EXPECT_EQ(quits, 0);
    test.scheduler.runBackground();
    EXPECT_TRUE(isWritten);
    EXPECT_EQ(quits, 1);
}

TEST_F(TerminationFlowTest, StaysToTellOfAnExportThatFailed) {
    test.busyWork->run(
        "Saving…", [] { throw LocalizedError("The disk is full."); }, [] {});
    flow.requestQuit();
    test.scheduler.runBackground();
    EXPECT_EQ(quits, 0);
    EXPECT_EQ(test.appState->alertMessage(), "The disk is full.");
    test.appState->setAlertMessage(std::nullopt);
    flow.requestQuit();
    EXPECT_EQ(quits, 1);
}

TEST_F(TerminationFlowTest, HoldsTheQuitWhenTheSaveFails) {
    edit();
    test.files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    test.panels.holdsAnswers = true;
    flow.requestQuit();
    EXPECT_EQ(quits, 0);
    ASSERT_EQ(test.panels.choiceRequests.size(), 1U);
    const ChoiceRequest& request = test.panels.choiceRequests[0];
    EXPECT_EQ(request.message.rfind("Couldn’t save: ", 0), 0U);
    ASSERT_EQ(request.choices.size(), 2U);
    EXPECT_EQ(request.choices[0].title, "Try Again");
    EXPECT_EQ(request.choices[1].title, "Quit Anyway");
    EXPECT_TRUE(request.choices[1].isDestructive);

    flow.requestQuit();
    EXPECT_EQ(test.panels.choiceRequests.size(), 1U);
}

TEST_F(TerminationFlowTest, QuitsOnceATryAgainSucceeds) {
    edit();
    test.files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    test.panels.holdsAnswers = true;
    test.panels.choice = 0;
    flow.requestQuit();
    test.files.stopFailing();
    test.panels.pending.at(0)();
    EXPECT_EQ(quits, 1);
    EXPECT_TRUE(fileHasTheEdit());
}

TEST_F(TerminationFlowTest, AsksAgainWhenTheTryFailsToo) {
    edit();
    test.files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    test.panels.holdsAnswers = true;
    test.panels.choice = 0;
    flow.requestQuit();
    test.panels.pending.at(0)();
    EXPECT_EQ(quits, 0);
    EXPECT_EQ(test.panels.choiceRequests.size(), 2U);
}

TEST_F(TerminationFlowTest, QuitsAnywayWhenTold) {
    edit();
    test.files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    test.panels.choice = 1;
    flow.requestQuit();
    EXPECT_EQ(quits, 1);
}

TEST_F(TerminationFlowTest, StaysWhenTheQuestionIsDismissed) {
    edit();
    test.files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    flow.requestQuit();
    EXPECT_EQ(quits, 0);
    // And asks afresh the next time.
    flow.requestQuit();
    EXPECT_EQ(test.panels.choiceRequests.size(), 2U);
}

TEST_F(TerminationFlowTest, NeverAsksWhenTheSessionEnds) {
    edit();
    test.files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    flow.quitWithoutAsking();
    EXPECT_EQ(quits, 1);
    EXPECT_TRUE(test.panels.choiceRequests.empty());
}

TEST(TerminationBehindTheGate, QuitsWithoutWritingAFile) {
    TestEnvironment test{TestEnvironment::Unopened{}};
    int quits = 0;
    TerminationFlow flow(*test, [&quits] { ++quits; });
    flow.requestQuit();
    EXPECT_EQ(quits, 1);
    EXPECT_FALSE(fileExists(test.files, TestEnvironment::dataFile));
}

} // namespace
} // namespace oakfen

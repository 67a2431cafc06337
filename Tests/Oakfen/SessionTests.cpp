#include "Oakfen/Session.h"

#include <gtest/gtest.h>

#include "OakfenCore/LibraryOperations/Accounts.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::TestEnvironment;

TEST(Session, HandsItsUndoManagerToTheStore) {
    TestEnvironment test;
    test.store->mutate("New Account",
                       [](Library& library) { upsert(library, testing::makeAccount("Everyday")); });
    EXPECT_EQ(test.undoManager->undoActionName(), "New Account");
}

TEST(Session, FollowsTheDayInItsIndex) {
    TestEnvironment test;
    const Date before = test.index().now();
    test.clock.advance(86400);
    test.environment->dayChange.check();
    EXPECT_EQ(test.index().now(), before.adding(86400));
}

TEST(Session, DoesWhatWaitsForAFreeWindowWithoutLookingMeanwhile) {
    TestEnvironment test;
    test.appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    int looks = 0;
    bool isDone = false;
    test.appState->whenFree(
        [&] {
            ++looks;
            return !test.appState->sheet();
        },
        [&] { isDone = true; });
    test.scheduler.advance(3600);
    EXPECT_EQ(looks, 1);
    test.appState->setSheet(std::nullopt);
    EXPECT_FALSE(isDone) << "whoever closed the sheet has not come to an end yet";
    test.scheduler.advance(0);
    EXPECT_TRUE(isDone);
}

TEST(Session, ShowsASampleWithoutAFileThatIsOpenAndUnlocked) {
    TestEnvironment own;
    own.defaults.set(settings::requireAuthentication, true);
    KeptInMemory kept;
    const std::unique_ptr<Session> sample = Session::sample(
        {{own.files, own.scheduler, own.clock, kept.defaults, kept.passwordStore, kept.legacyKeys},
         own.panels,
         own.authenticator});
    AppEnvironment& environment = sample->environment();
    EXPECT_FALSE(environment.store.filePath());
    EXPECT_TRUE(environment.store.accessState().isOpen());
    EXPECT_TRUE(environment.appState.isUnlocked());
    EXPECT_FALSE(environment.store.library().accounts.empty());
    environment.defaults.set(settings::showClosedAccounts, true);
    EXPECT_FALSE(own.defaults.get(settings::showClosedAccounts));
}

} // namespace
} // namespace oakfen

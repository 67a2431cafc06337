#include "Oakfen/Views/Gate/LockView.h"

#include <gtest/gtest.h>

#include "OakfenCore/Platform/InMemoryUserDefaults.h"
#include "OakfenCore/Testing/InMemoryAuthenticator.h"

namespace oakfen {
namespace {

using Kind = AuthenticationResult::Kind;

class LockViewTest : public ::testing::Test {
protected:
    LockViewTest() { appState.setUnlocked(false); }

    InMemoryUserDefaults defaults;
    AppState appState{defaults};
    InMemoryAuthenticator authenticator;
    std::optional<LockView> view{std::in_place, appState, authenticator};
};

TEST_F(LockViewTest, SaysThatOakfenIsLocked) {
    EXPECT_EQ(LockView::panelText(), (GatePanelText{"lock.shield", "Oakfen is Locked",
                                                    "Authenticate to view your finances."}));
}

TEST_F(LockViewTest, OpensAtOnceWhereThereIsNoWayToAuthenticate) {
    view->unlock();
    EXPECT_TRUE(appState.isUnlocked());
    EXPECT_FALSE(view->errorText());
}

TEST_F(LockViewTest, OpensAtOnceWithTheAuthenticatorThatAPlatformWithoutOneHas) {
    NoAuthenticator none;
    LockView(appState, none).unlock();
    EXPECT_TRUE(appState.isUnlocked());
}

TEST_F(LockViewTest, OpensWhenThePersonHasAuthenticated) {
    authenticator.holdPrompt();
    view->unlock();
    EXPECT_EQ(authenticator.reasons, std::vector<std::string>{"unlock your financial data"});
    EXPECT_FALSE(appState.isUnlocked());
    authenticator.answer({.kind = Kind::passed});
    EXPECT_TRUE(appState.isUnlocked());
}

TEST_F(LockViewTest, StaysLockedWithTheReasonAfterAFailureUntilTheNextAttempt) {
    authenticator.holdPrompt();
    int notices = 0;
    const Subscription subscription = view->changed.observe([&] { ++notices; });
    view->unlock();
    authenticator.answer({.kind = Kind::failed, .error = "Nobody was recognised."});
    EXPECT_FALSE(appState.isUnlocked());
    EXPECT_EQ(view->errorText(), "Nobody was recognised.");
    EXPECT_EQ(notices, 2);
    view->unlock();
    EXPECT_FALSE(view->errorText());
    authenticator.answer({.kind = Kind::passed});
    EXPECT_TRUE(appState.isUnlocked());
}

TEST_F(LockViewTest, AsksOnceWhileThePromptIsUp) {
    authenticator.holdPrompt();
    view->unlock();
    view->unlock();
    EXPECT_EQ(authenticator.reasons.size(), 1U);
}

TEST_F(LockViewTest, LeavesTheLockToItsSuccessorWhenItIsGoneBeforeTheAnswer) {
    authenticator.holdPrompt();
    view->unlock();
    view.reset();
    authenticator.answer({.kind = Kind::passed});
    EXPECT_FALSE(appState.isUnlocked());
}

TEST_F(LockViewTest, MayGoInTheMiddleOfOpening) {
    const Subscription subscription = appState.lockChanged.observe([this] { view.reset(); });
    view->unlock();
    EXPECT_TRUE(appState.isUnlocked());
    EXPECT_FALSE(view);
}

} // namespace
} // namespace oakfen

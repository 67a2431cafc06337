#include "Oakfen/Cover.h"

#include <gtest/gtest.h>

#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::TestEnvironment;

TEST(Cover, IsTheGateUntilTheFileIsOpen) {
    TestEnvironment test{TestEnvironment::Unopened{}};
    EXPECT_EQ(cover(*test), Cover::gate);
    EXPECT_TRUE(isObscured(*test));
    test.store->useNoPassword();
    EXPECT_EQ(cover(*test), Cover::none);
    EXPECT_FALSE(isObscured(*test));
}

TEST(Cover, IsTheGateWhereBothAreDue) {
    TestEnvironment test{TestEnvironment::Unopened{}};
    test.defaults.set(settings::requireAuthentication, true);
    test.appState->setUnlocked(false);
    EXPECT_EQ(cover(*test), Cover::gate);
    test.store->useNoPassword();
    EXPECT_EQ(cover(*test), Cover::lock);
    EXPECT_TRUE(isObscured(*test));
}

TEST(Cover, IsTheLockOnlyWhileTheSettingIsOn) {
    TestEnvironment test;
    test.appState->setUnlocked(false);
    EXPECT_EQ(cover(*test), Cover::none);
    test.defaults.set(settings::requireAuthentication, true);
    EXPECT_EQ(cover(*test), Cover::lock);
    test.appState->setUnlocked(true);
    EXPECT_EQ(cover(*test), Cover::none);
}

TEST(Cover, IsNotTheLockAtOnceWhenTheSettingIsTurnedOn) {
    TestEnvironment test;
    test.defaults.set(settings::requireAuthentication, true);
    EXPECT_EQ(cover(*test), Cover::none);
    EXPECT_FALSE(isObscured(*test));
}

TEST(Cover, LetsNobodyCloseADraftButAtTheGate) {
    TestEnvironment test{TestEnvironment::Unopened{}};
    test.appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    EXPECT_TRUE(canClose(*test));
    test.store->useNoPassword();
    EXPECT_FALSE(canClose(*test));
    test.defaults.set(settings::requireAuthentication, true);
    test.appState->setUnlocked(false);
    EXPECT_FALSE(canClose(*test));
    test.appState->setSheet(std::nullopt);
    EXPECT_TRUE(canClose(*test));
}

} // namespace
} // namespace oakfen

#include "Oakfen/Views/Gate/PasswordViews.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::TestEnvironment;

TEST(PasswordRating, IsNothingForNoPassword) {
    EXPECT_EQ(passwordRating(""), (PasswordRating{0, ""}));
}

TEST(PasswordRating, IsWeakBelowEightCharactersWhateverTheyAre) {
    EXPECT_EQ(passwordRating("a"), (PasswordRating{1, "Weak"}));
    EXPECT_EQ(passwordRating("aB3$aB3"), (PasswordRating{1, "Weak"}));
}

TEST(PasswordRating, AsksForTwoKindsOfCharacterUpToElevenOfThem) {
    EXPECT_EQ(passwordRating("abcdefgh"), (PasswordRating{2, "Fair"}));
    EXPECT_EQ(passwordRating("abcdefgH"), (PasswordRating{3, "Good"}));
    EXPECT_EQ(passwordRating("abcdefgh1"), (PasswordRating{3, "Good"}));
    EXPECT_EQ(passwordRating("abcdefg h"), (PasswordRating{3, "Good"}));
    EXPECT_EQ(passwordRating("12345678901"), (PasswordRating{2, "Fair"}));
}

TEST(PasswordRating, GoesByLengthAloneFromTwelveCharactersOn) {
    EXPECT_EQ(passwordRating("aaaaaaaaaaaa"), (PasswordRating{3, "Good"}));
    EXPECT_EQ(passwordRating("aaaaaaaaaaaaaaa"), (PasswordRating{3, "Good"}));
    EXPECT_EQ(passwordRating("aaaaaaaaaaaaaaaa"), (PasswordRating{4, "Strong"}));
}

TEST(PasswordRating, CountsCharactersAndKindsAsPeopleDo) {
    EXPECT_EQ(passwordRating("ééééééé"), (PasswordRating{1, "Weak"}));
    EXPECT_EQ(passwordRating("éééééééé"), (PasswordRating{2, "Fair"}));
    EXPECT_EQ(passwordRating("ééééééÉÉ"), (PasswordRating{3, "Good"}));
}

TEST(NewPasswordForm, CanBeSubmittedWhenBothFieldsAgree) {
    NewPasswordForm form;
    EXPECT_FALSE(form.canSubmit());
    form.password = "seven77";
    EXPECT_FALSE(form.canSubmit());
    form.confirm = "seven77";
    EXPECT_TRUE(form.canSubmit());
}

TEST(NewPasswordForm, SaysThatTheFieldsDiffer) {
    const NewPasswordForm form{.password = "one", .confirm = "two"};
    EXPECT_EQ(form.hint(), "The passwords don’t match.");
}

TEST(NewPasswordForm, WarnsOfForgettingWhileNothingIsConfirmed) {
    const NewPasswordForm form{.password = "one"};
    EXPECT_FALSE(form.canSubmit());
    EXPECT_EQ(form.hint(), "Oakfen can’t recover a forgotten password. Store it somewhere safe, "
                           "such as a password manager.");
}

class GateTest : public ::testing::Test {
protected:
    void open(const std::string& bytes) {
        writeOwnerOnly(test.files, bytes, TestEnvironment::dataFile);
        test.store->retryLoading();
    }

    TestEnvironment test{TestEnvironment::Unopened{}};
};

TEST_F(GateTest, WelcomesANewPerson) {
    EXPECT_EQ(gatePanel(*test.store), GatePanel::welcome);
}

TEST_F(GateTest, ShowsNothingOnceOpen) {
    test.store->useNoPassword();
    EXPECT_EQ(gatePanel(*test.store), GatePanel::none);
}

TEST_F(GateTest, OffersToProtectAPlainFileThatNobodyChose) {
    open(R"({"accounts":[],"budget":[],"categories":[],"currencyCode":"CAD","goals":[],)"
         R"("investmentTransactions":[],"scheduled":[],"securities":[],"transactions":[],)"
         R"("version":1})");
    EXPECT_EQ(gatePanel(*test.store), GatePanel::protectExistingData);
    EXPECT_EQ(gatePanelText(GatePanel::protectExistingData, "").title,
              "Protect Your Data with a Password");
}

TEST_F(GateTest, TellsWhyAFileCannotBeRead) {
    writeOwnerOnly(test.files, "{}", TestEnvironment::dataFile);
    test.files.failAll(InMemoryFileSystem::Call::open, EIO);
    test.store->retryLoading();
    ASSERT_EQ(gatePanel(*test.store), GatePanel::legacyUnavailable);
    const GatePanelText text =
        gatePanelText(GatePanel::legacyUnavailable, test.store->accessState().reason);
    EXPECT_EQ(text.symbolName, "key.slash");
    EXPECT_EQ(text.message.rfind("Your data file couldn’t be read: ", 0), 0U);
    EXPECT_NE(text.message.find(" It was encrypted by an earlier version of Oakfen"),
              std::string::npos);
}

TEST_F(GateTest, StartsOverOnlyWhenConfirmed) {
    open("not a document at all");
    test.store->useNoPassword();
    test.panels.confirms = false;
    chooseStartOver(*test);
    ASSERT_EQ(test.panels.confirmations.size(), 1U);
    EXPECT_EQ(test.panels.confirmations[0].confirmTitle, "Start Over");
    EXPECT_TRUE(test.store->accessState().isOpen());
    test.panels.confirms = true;
    // Files set aside are told apart by the second.
    test.clock.advance(1);
    chooseStartOver(*test);
    EXPECT_EQ(gatePanel(*test.store), GatePanel::welcome);
    EXPECT_FALSE(fileExists(test.files, TestEnvironment::dataFile));
}

TEST_F(GateTest, LeavesTheFileAloneWhenGoingUnencryptedIsDeclined) {
    test.panels.confirms = false;
    chooseNoPassword(*test, [](const std::string&) { FAIL(); });
    EXPECT_FALSE(test.store->accessState().isOpen());
    EXPECT_FALSE(fileExists(test.files, TestEnvironment::dataFile));
}

} // namespace
} // namespace oakfen

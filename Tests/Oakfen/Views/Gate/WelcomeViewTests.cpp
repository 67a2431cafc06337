#include "Oakfen/Views/Gate/WelcomeView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::TestEnvironment;

class WelcomeViewTest : public ::testing::Test {
protected:
    TestEnvironment test{TestEnvironment::Unopened{}};
    WelcomeView view{*test};
};

TEST_F(WelcomeViewTest, BeginsWithTheCurrencyOfTheLocale) {
    EXPECT_EQ(view.currency(), defaultCurrencyCode());
    EXPECT_FALSE(view.content()->hasChosen);
}

TEST_F(WelcomeViewTest, OffersEveryCurrencyByCodeAndName) {
    const auto currencies = WelcomeView::currencies();
    const auto dollar = std::find_if(currencies.begin(), currencies.end(),
                                     [](const auto& each) { return each.code == "CAD"; });
    ASSERT_NE(dollar, currencies.end());
    EXPECT_EQ(dollar->label.rfind("CAD – ", 0), 0U);
    EXPECT_GT(currencies.size(), 100U);
}

TEST_F(WelcomeViewTest, StartsFreshInTheChosenCurrency) {
    view.setCurrency("EUR");
    view.startFresh();
    EXPECT_EQ(test.library().currencyCode, "EUR");
    EXPECT_FALSE(test.library().categories.empty());
    EXPECT_TRUE(test.library().accounts.empty());
    EXPECT_TRUE(view.content()->hasChosen);
    EXPECT_FALSE(test.undoManager->canUndo());
}

TEST_F(WelcomeViewTest, BeginsWithASampleHouseholdInTheChosenCurrency) {
    view.setCurrency("EUR");
    view.exploreSampleData();
    EXPECT_EQ(test.library().currencyCode, "EUR");
    EXPECT_FALSE(test.library().accounts.empty());
    EXPECT_FALSE(test.library().transactions.empty());
    EXPECT_TRUE(view.content()->hasChosen);
    EXPECT_FALSE(test.undoManager->canUndo());
    EXPECT_FALSE(fileExists(test.files, TestEnvironment::dataFile));
}

TEST_F(WelcomeViewTest, KeepsNothingOfASampleThatWasTakenBack) {
    view.exploreSampleData();
    view.goBack();
    view.startFresh();
    EXPECT_TRUE(test.library().accounts.empty());
    EXPECT_TRUE(test.library().transactions.empty());
}

TEST_F(WelcomeViewTest, KeepsNothingOfAFirstChoiceThatWasTakenBack) {
    view.setCurrency("EUR");
    view.startFresh();
    view.goBack();
    EXPECT_FALSE(view.content()->hasChosen);
    view.setCurrency("JPY");
    view.startFresh();
    EXPECT_EQ(test.library().currencyCode, "JPY");
    EXPECT_FALSE(fileExists(test.files, TestEnvironment::dataFile));
}

TEST_F(WelcomeViewTest, OpensTheLibraryWithoutAPassword) {
    view.startFresh();
    view.useNoPassword();
    ASSERT_EQ(test.panels.confirmations.size(), 1U);
    EXPECT_EQ(test.panels.confirmations[0].title, "Keep your data unencrypted?");
    EXPECT_TRUE(test.store->accessState().isOpen());
    EXPECT_TRUE(fileExists(test.files, TestEnvironment::dataFile));
    EXPECT_FALSE(view.content()->errorText);
}

TEST_F(WelcomeViewTest, StaysWhenTheQuestionIsDismissed) {
    test.panels.confirms = false;
    view.startFresh();
    view.useNoPassword();
    EXPECT_FALSE(test.store->accessState().isOpen());
    EXPECT_TRUE(view.content()->hasChosen);
}

TEST_F(WelcomeViewTest, TellsWhyTheFileCouldNotBeWritten) {
    view.startFresh();
    test.files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    view.useNoPassword();
    EXPECT_FALSE(test.store->accessState().isOpen());
    ASSERT_TRUE(view.content()->errorText);
    EXPECT_FALSE(view.content()->errorText->empty());
}

TEST_F(WelcomeViewTest, SurvivesAnAnswerThatComesAfterItIsGone) {
    auto gone = std::make_unique<WelcomeView>(*test);
    gone->startFresh();
    test.panels.holdsAnswers = true;
    gone->useNoPassword();
    gone.reset();
    test.files.failAll(InMemoryFileSystem::Call::open, ENOSPC);
    ASSERT_EQ(test.panels.pending.size(), 1U);
    test.panels.pending[0]();
    EXPECT_FALSE(test.store->accessState().isOpen());
}

TEST_F(WelcomeViewTest, TellsOfEachStep) {
    ASSERT_FALSE(view.content()->hasChosen);
    int notices = 0;
    const Subscription watching = view.changed.observe([&] { ++notices; });
    view.startFresh();
    view.goBack();
    EXPECT_EQ(notices, 2);
}

} // namespace
} // namespace oakfen

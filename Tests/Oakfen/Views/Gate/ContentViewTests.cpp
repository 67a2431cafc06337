#include "Oakfen/Views/Gate/ContentView.h"

#include <gtest/gtest.h>

#include "Oakfen/Views/Shell/DetailView.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::makeAccount;
using testing::TestEnvironment;

TEST(ContentView, ShowsNoAlertWhenThereIsNothingToSay) {
    TestEnvironment test;
    EXPECT_FALSE(ContentView(*test).dueAlert());
}

TEST(ContentView, ShowsTwoAlertsOneAfterAnother) {
    // A damaged file gives the first start a message of the store's.
    TestEnvironment test{TestEnvironment::Unopened{}};
    writeOwnerOnly(test.files, "not a document", TestEnvironment::dataFile);
    test.store->retryLoading();
    ASSERT_TRUE(test.store->lastError());
    test.appState->setAlertMessage("Choose a CSV file.");

    ContentView view(*test);
    const auto first = view.dueAlert();
    ASSERT_TRUE(first);
    EXPECT_EQ(*first, (ContentView::Alert{ContentView::AlertSource::application, "Oakfen",
                                          "Choose a CSV file."}));
    view.dismissAlert(first->source);
    EXPECT_FALSE(test.appState->alertMessage());

    const auto second = view.dueAlert();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->title, "Problem with your data file");
    EXPECT_EQ(second->text, *test.store->lastError());
    EXPECT_EQ(second->addition,
              "It is kept as “" + *test.store->lastErrorDetails().keptName + "”.");
    EXPECT_NE(second->details.find("(byte "), std::string::npos);
    view.dismissAlert(second->source);
    EXPECT_FALSE(test.store->lastError());
    EXPECT_FALSE(view.dueAlert());
}

class DetailViewTest : public ::testing::Test {
protected:
    DetailViewTest() {
        Library library{.currencyCode = "CAD"};
        library.accounts.push_back(chequing);
        library.accounts.push_back(brokerage);
        test.store->replaceLibrary(library, std::nullopt);
    }
    [[nodiscard]] DetailScreen screen(std::optional<SidebarItem> selection) const {
        return detailScreen(selection, test.index());
    }

    Account chequing = makeAccount("Everyday");
    Account brokerage = makeAccount("Stocks", AccountType::brokerage);
    TestEnvironment test;
};

TEST_F(DetailViewTest, ShowsTheScreenOfTheAccount) {
    const SidebarItem item = SidebarItem::account(chequing.id);
    EXPECT_EQ(screen(item), (DetailScreen{item, false}));
}

TEST_F(DetailViewTest, ShowsAnotherScreenForAnInvestmentAccount) {
    const SidebarItem item = SidebarItem::account(brokerage.id);
    EXPECT_EQ(screen(item), (DetailScreen{item, true}));
}

TEST_F(DetailViewTest, ShowsNoAccountForOneThatIsGone) {
    const DetailScreen gone = screen(SidebarItem::account(UUID::random()));
    EXPECT_FALSE(gone.item);
    EXPECT_EQ(placeholder(gone), (EmptyState{"No Account Selected", "building.columns",
                                             "Choose an account in the sidebar."}));
}

TEST_F(DetailViewTest, ShowsTheDashboardWhenNothingIsSelected) {
    EXPECT_EQ(screen(std::nullopt).item, SidebarItem{SidebarItem::Kind::dashboard});
}

TEST_F(DetailViewTest, ShowsEveryOverviewItemOnAScreenOfItsOwn) {
    EXPECT_EQ(overviewItems().size(), 7U);
    for (const SidebarItem& item : overviewItems()) {
        EXPECT_EQ(screen(item), DetailScreen{item});
    }
}

TEST_F(DetailViewTest, NamesTheScreenThatIsNotThereYet) {
    EXPECT_EQ(placeholder({SidebarItem{SidebarItem::Kind::budget}}).title, "Budget");
    EXPECT_EQ(placeholder({SidebarItem{SidebarItem::Kind::goals}}).symbolName, "target");
}

} // namespace
} // namespace oakfen

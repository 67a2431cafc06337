#include "Oakfen/AppState.h"

#include <gtest/gtest.h>

#include "OakfenCore/Platform/InMemoryUserDefaults.h"

namespace oakfen {
namespace {

class AppStateTest : public ::testing::Test {
protected:
    InMemoryUserDefaults defaults;
    AppState state{defaults};

    int notices = 0;
    Subscription counting(Observers<>& observers) {
        return observers.observe([this] { ++notices; });
    }
};

TEST_F(AppStateTest, BeginsOnTheDashboardWithNothingOpen) {
    EXPECT_EQ(state.selection(), SidebarItem{SidebarItem::Kind::dashboard});
    EXPECT_FALSE(state.sheet());
    EXPECT_FALSE(state.alertMessage());
    EXPECT_FALSE(state.busyMessage());
}

TEST_F(AppStateTest, StartsUnlockedWhenNothingIsSetAboutAuthentication) {
    EXPECT_TRUE(state.isUnlocked());
}

TEST_F(AppStateTest, StartsLockedWhenAuthenticationIsRequired) {
    defaults.set(settings::requireAuthentication, true);
    EXPECT_FALSE(AppState(defaults).isUnlocked());
}

TEST_F(AppStateTest, DerivesTheSelectedAccountFromTheSelection) {
    const UUID id = UUID::random();
    state.setSelection(SidebarItem::account(id));
    EXPECT_EQ(state.selectedAccountID(), id);
    state.setSelection(SidebarItem{SidebarItem::Kind::dashboard});
    EXPECT_FALSE(state.selectedAccountID());
    state.setSelection(std::nullopt);
    EXPECT_FALSE(state.selectedAccountID());
}

TEST_F(AppStateTest, TellsOfAChangeButNotOfAnEqualValue) {
    const Subscription selection = counting(state.selectionChanged);
    state.setSelection(SidebarItem{SidebarItem::Kind::dashboard});
    EXPECT_EQ(notices, 0);
    state.setSelection(SidebarItem{SidebarItem::Kind::bills});
    EXPECT_EQ(notices, 1);

    const Subscription sheet = counting(state.sheetChanged);
    state.setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    state.setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    EXPECT_EQ(notices, 2);

    const Subscription alert = counting(state.alertChanged);
    state.setAlertMessage(std::nullopt);
    EXPECT_EQ(notices, 2);
    state.setAlertMessage("Something to know");
    EXPECT_EQ(notices, 3);

    const Subscription busy = counting(state.busyChanged);
    state.setBusyMessage("Reading…");
    state.setBusyMessage("Reading…");
    EXPECT_EQ(notices, 4);

    const Subscription lock = counting(state.lockChanged);
    state.setUnlocked(true);
    EXPECT_EQ(notices, 4);
    state.setUnlocked(false);
    EXPECT_EQ(notices, 5);
}

TEST_F(AppStateTest, ListsTheOverviewInTheOrderOfTheSidebar) {
    std::vector<std::string> titles;
    for (const SidebarItem& item : overviewItems()) {
        titles.emplace_back(title(item.kind));
    }
    EXPECT_EQ(titles, (std::vector<std::string>{"Dashboard", "Bills & Income", "Budget", "Reports",
                                                "Investing", "Savings Goals", "Categories"}));
}

TEST_F(AppStateTest, GivesEveryItemItsTitleAndItsIcon) {
    using Kind = SidebarItem::Kind;
    struct Expected {
        Kind kind;
        std::string_view title;
        std::string_view symbolName;
    };
    for (const Expected& expected : std::initializer_list<Expected>{
             {Kind::account, "Account", "building.columns"},
             {Kind::dashboard, "Dashboard", "square.grid.2x2"},
             {Kind::bills, "Bills & Income", "calendar.badge.clock"},
             {Kind::budget, "Budget", "chart.bar.doc.horizontal"},
             {Kind::reports, "Reports", "chart.pie"},
             {Kind::investing, "Investing", "chart.line.uptrend.xyaxis"},
             {Kind::goals, "Savings Goals", "target"},
             {Kind::categories, "Categories", "tag"}}) {
        EXPECT_EQ(title(expected.kind), expected.title);
        EXPECT_EQ(symbolName(expected.kind), expected.symbolName);
    }
}

class WaitingWork : public AppStateTest {
protected:
    void whenFree(const std::string& name) {
        state.whenFree([this] { return isFree; }, [this, name] { done += name; });
    }

    bool isFree = false;
    std::string done;
};

TEST_F(WaitingWork, IsDoneAtOnceWhereNothingKeepsIt) {
    isFree = true;
    whenFree("a");
    EXPECT_EQ(done, "a");
    EXPECT_FALSE(state.hasWaitingWork());
}

TEST_F(WaitingWork, IsDoneOnceInTheOrderOfAsking) {
    whenFree("a");
    whenFree("b");
    state.doWhatWaits();
    EXPECT_EQ(done, "");
    EXPECT_TRUE(state.hasWaitingWork());
    isFree = true;
    state.doWhatWaits();
    state.doWhatWaits();
    EXPECT_EQ(done, "ab");
    EXPECT_FALSE(state.hasWaitingWork());
}

TEST_F(WaitingWork, WaitsOnWhileWhatWasDoneBeforeItKeepsIt) {
    state.whenFree([this] { return isFree; }, [this] { isFree = false; });
    whenFree("b");
    isFree = true;
    state.doWhatWaits();
    EXPECT_EQ(done, "");
    isFree = true;
    state.doWhatWaits();
    EXPECT_EQ(done, "b");
}

TEST_F(AppStateTest, RemembersAFewCategoriesTheLatestFirst) {
    EXPECT_TRUE(state.recentCategories().empty());
    std::vector<UUID> ids(7);
    for (UUID& id : ids) {
        id = UUID::random();
        state.rememberCategory(id);
    }
    state.rememberCategory(ids[3]);
    EXPECT_EQ(state.recentCategories(),
              (std::vector<UUID>{ids[3], ids[6], ids[5], ids[4], ids[2]}));
}

TEST(ActiveSheetTest, ComparesSetsOfEntriesByWhatIsInThem) {
    const auto of = [](UUIDSet ids) {
        return ActiveSheet{
            ActiveSheet::SetCategory{std::make_shared<const UUIDSet>(std::move(ids))}};
    };
    const UUID id = UUID::random();
    EXPECT_EQ(of({id}), of({id}));
    EXPECT_NE(of({id}), of({id, UUID::random()}));
}

TEST(ActiveSheetTest, ComparesImportReviewsByTheirSessions) {
    const auto session = std::make_shared<ImportSession>(ImportSession{.id = UUID::random()});
    const auto same = std::make_shared<ImportSession>(*session);
    const auto other = std::make_shared<ImportSession>(ImportSession{.id = UUID::random()});
    EXPECT_EQ(ActiveSheet{ActiveSheet::ImportReview{session}},
              ActiveSheet{ActiveSheet::ImportReview{same}});
    EXPECT_NE(ActiveSheet{ActiveSheet::ImportReview{session}},
              ActiveSheet{ActiveSheet::ImportReview{other}});
    EXPECT_NE(ActiveSheet{ActiveSheet::NewAccount{}},
              ActiveSheet{ActiveSheet::EditAccount{UUID{}}});
}

} // namespace
} // namespace oakfen

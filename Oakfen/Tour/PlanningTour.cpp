#include "Oakfen/Tour/PlanningTour.h"

#include <QScrollBar>
#include <QWidget>
#include <string>

#include "Oakfen/Tour/Album.h"
#include "Oakfen/Tour/TourStage.h"
#include "Oakfen/Widgets/Bills/BillsWidget.h"
#include "Oakfen/Widgets/Budget/BudgetTableWidget.h"
#include "Oakfen/Widgets/Budget/BudgetWidget.h"
#include "Oakfen/Widgets/Dashboard/DashboardWidget.h"
#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "OakfenCore/Models/Money.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

using Kind = SidebarItem::Kind;

/// Three columns of cards have room.
constexpr QSize wideSize(1720, 1060);

/// The screen of that kind; one that was shown before may not have gone yet.
template <typename Widget>
Widget* shown(TourStage& stage) {
    return stage.window().findChildren<Widget*>().last();
}

void showEnd(TourStage& stage, QScrollArea& page) {
    // Once it is laid out.
    static_cast<void>(stage.picture());
    page.verticalScrollBar()->setValue(page.verticalScrollBar()->maximum());
}

/// Bills with what is tried out, and their end, which only scrolling brings into sight.
void walkTheBills(const Album& album, TourStage& stage) {
    stage.appState().setSelection(SidebarItem{SidebarItem::Kind::bills});
    auto* bills = shown<BillsWidget>(stage);
    const Date now = stage.store().index().now();
    bills->view().setTriesOut(true);
    struct Tried {
        std::string name;
        std::int64_t cents;
        int days;
        Frequency frequency = Frequency::once;
    };
    for (const Tried& each : {Tried{"Winter holiday", -120000, 5}, Tried{"New sofa", -240000, 11},
                              Tried{"Weekend work", 45000, 20, Frequency::monthly}}) {
        bills->view().changeTriedEntry({.id = bills->view().addTriedEntry(),
                                        .name = each.name,
                                        .amount = Decimal::cents(each.cents),
                                        .date = stage.calendar().addingDays(now, each.days),
                                        .frequency = each.frequency});
    }
    album.add(stage, "screen-bills-what-if");
    bills->view().setTriesOut(false);
    showEnd(stage, *bills);
    album.add(stage, "screen-bills-end");
}

void walkTheDashboard(const Album& album, TourStage& stage) {
    stage.appState().setSelection(SidebarItem{Kind::dashboard});
    const QSize usualSize = stage.window().size();
    stage.window().resize(wideSize);
    album.add(stage, "screen-dashboard-wide");
    stage.window().resize(smallSize);
    album.add(stage, "screen-dashboard-small");
    stage.window().resize(usualSize);
    album.add(stage, "screen-dashboard");
    showEnd(stage, *shown<DashboardWidget>(stage));
    album.add(stage, "screen-dashboard-end");
}

void walkTheBudget(const Album& album, TourStage& stage) {
    stage.appState().setSelection(SidebarItem{Kind::budget});
    auto* budget = shown<BudgetWidget>(stage);
    album.add(stage, "screen-budget");
    budget->findChild<BudgetTableWidget*>()->editEnd(true);
    album.add(stage, "screen-budget-edit");
    stage.appState().setSelection(SidebarItem{Kind::dashboard});
    stage.appState().setSelection(SidebarItem{Kind::budget});
    shown<BudgetWidget>(stage)->view().showEntries(CategoryKind::expense);
    album.add(stage, "panel-lines");
    stage.appState().setSelection(SidebarItem{Kind::dashboard});
}

Library withManyCategories(Library document) {
    const std::size_t before = document.categories.size();
    for (int each = 1; each <= 60; ++each) {
        Category category{.id = UUID::random(),
                          .name = "Something that is bought now and then, number " +
                                  std::to_string(each)};
        if (each % 4 != 0 && before > 0) {
            category.parentID = document.categories[before - 1].id;
        }
        document.budget[category.id] = Decimal(10 * each);
        document.categories.push_back(std::move(category));
    }
    return document;
}

Library withManyReminders(Library document, Date now) {
    if (document.accounts.empty()) {
        return document;
    }
    for (int each = 1; each <= 40; ++each) {
        document.scheduled.push_back(
            {.id = UUID::random(),
             .payee = "Somebody who is paid regularly, number " + std::to_string(each),
             .accountID = document.accounts.front().id,
             .amount = Decimal::cents(each % 5 == 0 ? 12345 : -1234 * each),
             .frequency = each % 2 == 0 ? Frequency::weekly : Frequency::monthly,
             .nextDate = now.adding((each - 4) * 86'400.0)});
    }
    return document;
}

void walkTheStates(const Album& album, const Library& document, const std::string& name,
                   const std::vector<Kind>& kinds) {
    TourStage stage("");
    stage.show(document);
    for (const Kind kind : kinds) {
        stage.appState().setSelection(SidebarItem{kind});
        const std::string screen(title(kind));
        album.add(stage, name + "-" + lowercased(screen.substr(0, screen.find(' '))));
    }
}

} // namespace

void walkThePlans(const Album& album, TourStage& stage) {
    walkTheDashboard(album, stage);
    walkTheBills(album, stage);
    walkTheBudget(album, stage);
}

void walkTheStatesOfPlans(const Album& album, const Library& document) {
    const Library empty{.currencyCode = "CAD"};
    walkTheStates(album, empty, "empty",
                  {Kind::bills, Kind::budget, Kind::goals, Kind::categories});
    Library one = empty;
    one.accounts.push_back({.id = UUID::random(),
                            .name = "Everyday Chequing",
                            .openingBalance = Decimal(250),
                            .openingDate = SystemClock().now()});
    walkTheStates(album, one, "one-account", {Kind::dashboard, Kind::bills, Kind::budget});
    walkTheStates(album, withManyCategories(document), "many-categories",
                  {Kind::dashboard, Kind::budget, Kind::categories});
    walkTheStates(album, withManyReminders(document, SystemClock().now()), "many-reminders",
                  {Kind::dashboard, Kind::bills});
}

} // namespace oakfen

#include "Oakfen/Tour/Tour.h"

#include <QScopeGuard>
#include <QSize>
#include <QWidget>
#include <utility>

#include "Oakfen/Tour/Album.h"
#include "Oakfen/Tour/PlanningTour.h"
#include "Oakfen/Tour/TourStage.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "Oakfen/Widgets/Theme/WindowState.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/SampleData/SampleData.h"
#include "OakfenCore/Support/Files/SystemFileSystem.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// A statement whose first lines the account has already.
ImportSession exampleStatement(const LibraryIndex& index, const Account& account) {
    ImportSession session{
        .id = UUID::random(), .fileName = "statement.csv", .accountID = account.id};
    const auto entries = index.transactions(account.id);
    for (std::size_t back = 1; back <= 3 && back <= entries.size(); ++back) {
        const Transaction& entry = *entries[entries.size() - back];
        session.items.push_back({.id = UUID::random(),
                                 .date = entry.date,
                                 .payee = entry.payee,
                                 .amount = entry.amount});
    }
    struct Line {
        std::string payee;
        std::int64_t cents;
        std::string category = {};
    };
    // One padded as banks do it, one of a category that nobody has.
    const std::vector<Line> lines{{"HARVEST & HOME          ANYTOWN", -8412},
                                  {"Corner Coffee", -635, "Coffee Shops"},
                                  {"Lakeview Transit", -2400},
                                  {"Mobile Deposit", 12000},
                                  {"Grand Cinema", -3250},
                                  {"Riverside Pharmacy", -1889, "Medical"}};
    for (const Line& line : lines) {
        session.items.push_back({.id = UUID::random(),
                                 .date = index.now(),
                                 .payee = line.payee,
                                 .amount = Decimal::cents(line.cents),
                                 .categoryName = line.category});
    }
    return session;
}

/// As many as a person may select at once.
std::shared_ptr<const UUIDSet> someEntries(const LibraryIndex& index, const Account& account) {
    UUIDSet ids;
    for (const Transaction* entry : index.transactions(account.id)) {
        ids.insert(entry->id);
        if (ids.size() == 12) {
            break;
        }
    }
    return std::make_shared<const UUIDSet>(std::move(ids));
}

void walkTheGate(Album& album) {
    TourStage first("");
    album.add(first, "gate-welcome");

    TourStage plain(
        encodeLibrary(SampleData::make(SystemClock().now(), "CAD", Calendar::current())));
    album.add(plain, "gate-protect");

    TourStage locked("OAKFEN-ENC-3");
    album.add(locked, "gate-unlock");

    TourStage old("TARNWICKENC1");
    album.add(old, "gate-unavailable");
}

void walkTheSheets(Album& album, TourStage& stage, const Account& account) {
    AppState& state = stage.appState();
    const auto open = [&](auto sheet, const std::string& name) {
        state.setSheet(ActiveSheet{std::move(sheet)});
        album.add(stage, name);
        state.setSheet(std::nullopt);
    };
    open(ActiveSheet::NewAccount{}, "sheet-new-account");
    open(ActiveSheet::EditAccount{account.id}, "sheet-edit-account");
    open(ActiveSheet::NewTransaction{account.id}, "sheet-new-transaction");
    const auto openFirst = [&](bool (Transaction::*isWanted)() const, const std::string& name) {
        const auto& entries = stage.store().library().transactions;
        if (const Transaction* entry =
                entries.first([&](const Transaction& each) { return (each.*isWanted)(); })) {
            open(ActiveSheet::EditTransaction{entry->id}, name);
        }
    };
    openFirst(&Transaction::isSplit, "sheet-edit-split");
    openFirst(&Transaction::isTransfer, "sheet-edit-transfer");
    UUIDSet several;
    const auto& entries = stage.store().index().transactions(account.id);
    for (std::size_t back = 1; back <= 3 && back <= entries.size(); ++back) {
        several.insert(entries[entries.size() - back]->id);
    }
    open(ActiveSheet::EditSeveral{std::make_shared<const UUIDSet>(std::move(several))},
         "sheet-edit-several");
    open(ActiveSheet::Scheduled{}, "sheet-new-reminder");
    if (const auto& reminders = stage.store().library().scheduled; !reminders.empty()) {
        open(ActiveSheet::Scheduled{.id = reminders.front().id}, "sheet-edit-reminder");
        open(ActiveSheet::EnterReminder{reminders.front().id}, "sheet-enter-reminder");
    }
    open(ActiveSheet::Reconcile{account.id}, "sheet-reconcile");
    open(ActiveSheet::SetCategory{someEntries(stage.store().index(), account)},
         "sheet-set-category");
    const Library& document = stage.store().library();
    if (!document.goals.empty()) {
        open(ActiveSheet::Goal{document.goals.back().id}, "sheet-edit-goal");
        open(ActiveSheet::Contribute{document.goals.back().id}, "sheet-contribute");
    }
    open(ActiveSheet::Category{}, "sheet-new-category");
    open(ActiveSheet::ImportReview{std::make_shared<const ImportSession>(
             exampleStatement(stage.store().index(), account))},
         "sheet-import-review");
}

void walkTheScreens(Album& album, const Library& document) {
    TourStage empty("");
    empty.show(Library{.currencyCode = "CAD"});
    album.add(empty, "screen-empty");

    TourStage stage("");
    stage.show(document);
    for (const SidebarItem& item : overviewItems()) {
        stage.appState().setSelection(item);
        const std::string name = lowercased(title(item.kind));
        album.add(stage, "screen-" + name.substr(0, name.find(' ')));
    }
    walkThePlans(album, stage);
    int number = 0;
    for (const Account& account : document.accounts) {
        stage.appState().setSelection(SidebarItem::account(account.id));
        album.add(stage, "screen-account-" + std::to_string(++number));
    }
    stage.showBusy("Reading statement.csv…");
    album.add(stage, "screen-busy");
    stage.appState().setBusyMessage(std::nullopt);
    if (!document.accounts.empty()) {
        walkTheSheets(album, stage, document.accounts.front());
        stage.appState().setSelection(SidebarItem::account(document.accounts.front().id));
        const QSize usualSize = stage.window().size();
        stage.window().resize(smallSize);
        album.add(stage, "screen-small");
        stage.find("");
        album.add(stage, "panel-find-small");
        // The next windows take the size that the last one had.
        stage.window().resize(usualSize);
        stage.find("o");
        album.add(stage, "panel-find");
    }
}

} // namespace

void renderTour(const std::string& folder, const std::optional<std::string>& file) {
    // The windows of the tour must not move those of the person.
    const windowState::InMemory inMemory;
    const auto wasDark = Theme::isDark();
    const auto putBack = qScopeGuard([&] {
        if (Theme::isDark() != wasDark) {
            Theme::setDark(wasDark);
        }
    });

    const Library document =
        file ? decodeLibrary(readFile(systemFiles(), *file))
             : SampleData::make(SystemClock().now(), "CAD", Calendar::current());
    Album album(folder);
    for (const bool dark : {false, true}) {
        Theme::setDark(dark);
        walkTheGate(album);
        walkTheScreens(album, document);
        walkTheStatesOfPlans(album, document);
    }
}

} // namespace oakfen

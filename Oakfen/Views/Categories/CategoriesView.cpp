#include "Oakfen/Views/Categories/CategoriesView.h"

#include <utility>

#include "Oakfen/FigureLines.h"
#include "Oakfen/UndoNotice.h"
#include "OakfenCore/LibraryIndex/Actuals.h"
#include "OakfenCore/LibraryOperations/Categories.h"
#include "OakfenCore/Models/Money.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

namespace {

/// The monthly amount, where there is one.
std::string budgetText(const Library& library, const UUID& id) {
    const auto found = library.budget.find(id);
    if (found == library.budget.end() || !found->second.isPositive()) {
        return {};
    }
    return "Budget " + currencyText(found->second, library.currencyCode) + "/mo";
}

void deleteAndOfferUndo(AppEnvironment& environment, const UUID& id) {
    const Category* category = environment.store.index().category(id);
    if (category == nullptr) {
        return;
    }
    const std::string name = quoted(category->name);
    environment.store.mutate("Delete Category",
                             [&](Library& library) { deleteCategory(library, id); });
    offerUndo(environment, name + " deleted");
}

} // namespace

CategoriesView::CategoriesView(AppEnvironment& environment)
    : Screen(environment),
      dayChanged_(environment.dayChange.dayChanged.observe([this] { stateChanged(); })) {}

DateInterval CategoriesView::yearToDate() const {
    return interval(DateRangePreset::yearToDate, environment_.clock.now(),
                    environment_.clock.calendar());
}

CategoryRow CategoriesView::row(const Category& category, const Category* parent,
                                const Actuals& actuals) const {
    const bool isTopLevel = parent == nullptr;
    return {.id = category.id,
            .name = category.name,
            .isTopLevel = isTopLevel,
            .parentName = isTopLevel ? std::string() : parent->name,
            .isTaxRelated = category.isTaxRelated,
            .budget = budgetText(environment_.store.library(), category.id),
            .total = actuals.of(category.id, isTopLevel)};
}

CategoriesContent CategoriesView::derive(const CategoriesContent* earlier) const {
    const LibraryIndex& index = environment_.store.index();
    const Actuals actuals(index, yearToDate());
    std::vector<CategoryRow> rows;
    for (const Category* top : index.topLevelCategories(kind_)) {
        rows.push_back(row(*top, nullptr, actuals));
        for (const Category* child : index.children(top->id)) {
            rows.push_back(row(*child, top, actuals));
        }
    }
    auto table = std::make_shared<const Table<CategoryRow>>(categoryColumns(), std::move(rows),
                                                            nullptr, cellContext());
    return {.kind = kind_,
            .table = keepingEqual(earlier != nullptr ? earlier->table : nullptr,
                                  std::shared_ptr<const Table<CategoryRow>>(std::move(table)))};
}

void CategoriesView::setKind(CategoryKind kind) {
    kind_ = kind;
    stateChanged();
}

void CategoriesView::newCategory() {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::Category{.kind = kind_}});
}

void CategoriesView::edit(const UUID& id) {
    environment_.appState.setSheet(ActiveSheet{ActiveSheet::Category{id, kind_}});
}

void CategoriesView::requestDeletion(const UUID& id) {
    const LibraryIndex& index = environment_.store.index();
    if (index.category(id) == nullptr) {
        return;
    }
    const ConfirmationRequest request{
        .title = "Delete Category",
        .message = "Transactions using it become uncategorized; subcategories move up a level.",
        .confirmTitle = "Delete Category",
        .isDestructive = true,
        .subject = quoted(index.categoryName(id))};
    environment_.panels.confirm(request, whileAlive([this, id](bool isConfirmed) {
                                    if (isConfirmed) {
                                        deleteAndOfferUndo(environment_, id);
                                    }
                                }));
}

void CategoriesView::showEntries(const UUID& id) {
    const LibraryIndex& index = environment_.store.index();
    const Category* category = index.category(id);
    if (category == nullptr) {
        return;
    }
    FigureLines lines = actualLines(index, id, yearToDate(), !category->parentID);
    lines.detail = "Actual · Year to Date";
    environment_.appState.linesWanted.notify(lines);
}

std::vector<MenuEntry> CategoriesView::contextMenu(const UUID& id) {
    const Category* category = environment_.store.index().category(id);
    if (category == nullptr) {
        return {};
    }
    std::vector<MenuEntry> menu{{.title = "Edit",
                                 .symbolName = "pencil",
                                 .shortcut = "Return",
                                 .leavesKeyToFocus = true,
                                 .perform = [this, id] { edit(id); }}};
    if (!category->parentID) {
        menu.push_back({.title = "New Subcategory…",
                        .symbolName = "plus",
                        .perform = [&state = environment_.appState, kind = category->kind] {
                            state.setSheet(ActiveSheet{ActiveSheet::Category{.kind = kind}});
                        }});
    }
    menu.push_back({.title = "Delete",
                    .symbolName = "trash",
                    .shortcut = "Del",
                    .leavesKeyToFocus = true,
                    .perform = [this, id] { requestDeletion(id); },
                    .isDestructive = true});
    menu.push_back({.title = "Show Entries",
                    .symbolName = "list.bullet",
                    .shortcut = "Space",
                    .leavesKeyToFocus = true,
                    .perform = [this, id] { showEntries(id); },
                    .startsGroup = true});
    return menu;
}

} // namespace oakfen

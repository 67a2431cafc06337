#include "Oakfen/Views/Budget/BudgetView.h"

#include <algorithm>
#include <utility>

#include "Oakfen/FigureLines.h"
#include "Oakfen/UndoNotice.h"
#include "Oakfen/Views/Budget/Autofill.h"
#include "OakfenCore/LibraryIndex/PeriodTotals.h"
#include "OakfenCore/Support/Text/MonthText.h"

namespace oakfen {

namespace {

Decimal budgetOf(const Library& library, const UUID& categoryID) {
    const auto found = library.budget.find(categoryID);
    return found == library.budget.end() ? Decimal() : found->second;
}

Decimal sumOfBudgets(const BudgetTable& table) {
    return sum(table.rows(), [](const BudgetRow* row) { return row->line.budget; });
}

std::string_view titleOf(CategoryKind kind) {
    return kind == CategoryKind::income ? "Income" : "Spending";
}

} // namespace

BudgetView::BudgetView(AppEnvironment& environment)
    : Screen(environment),
      month_(environment.clock.calendar().startOfMonth(environment.clock.now())) {}

void BudgetView::shift(int months) {
    const Calendar& calendar = environment_.clock.calendar();
    // Not every month begins at midnight: where the clock skips that, the next one still does.
    month_ = calendar.startOfMonth(calendar.addingMonths(month_, months));
    stateChanged();
}

void BudgetView::showThisMonth() {
    month_ = environment_.clock.calendar().startOfMonth(environment_.clock.now());
    stateChanged();
}

void BudgetView::setShowsAllCategories(bool shows) {
    showsAllCategories_ = shows;
    stateChanged();
}

DateInterval BudgetView::monthInterval() const {
    return {month_, environment_.clock.calendar().endOfMonth(month_)};
}

BudgetView::Line BudgetView::line(const Category& category) const {
    const LibraryIndex& index = environment_.store.index();
    const Category* parent = category.parentID ? index.category(*category.parentID) : nullptr;
    return {.id = category.id,
            .name = category.name,
            .parent = parent != nullptr ? std::optional(parent->name) : std::nullopt,
            .kind = category.kind,
            .budget = budgetOf(index.library(), category.id),
            .actual = actual(index, category.id, monthInterval(), false)};
}

std::vector<BudgetView::Line> BudgetView::budgetLines() const {
    const LibraryIndex& index = environment_.store.index();
    std::vector<Line> lines;
    for (const Category& category : index.library().categories) {
        Line each = line(category);
        if (showsAllCategories_ || !each.budget.isZero() || !each.actual.isZero()) {
            lines.push_back(std::move(each));
        }
    }
    const auto path = [&index](const Line& each) -> std::string_view {
        const std::string* whole = index.categoryPath(each.id);
        return whole != nullptr ? *whole : each.name;
    };
    std::ranges::stable_sort(lines, {}, path);
    return lines;
}

BudgetContent BudgetView::derive(const BudgetContent* earlier) const {
    const Calendar& calendar = environment_.clock.calendar();
    std::vector<BudgetRow> rows;
    for (Line& each : budgetLines()) {
        rows.push_back({.line = std::move(each)});
    }
    const auto lines = std::make_shared<const std::vector<BudgetRow>>(std::move(rows));
    auto spending = table(lines, CategoryKind::expense);
    auto income = table(lines, CategoryKind::income);
    const Decimal left = sumOfBudgets(*income) - sumOfBudgets(*spending);
    MoneyText leftText = moneyText(left, environment_.currencyCode());
    leftText.tone = left.isNegative() ? TextTone::negative : TextTone::positive;
    return {.monthTitle = monthYearText(month_, calendar),
            .isThisMonth =
                calendar.startOfMonth(month_) == calendar.startOfMonth(environment_.clock.now()),
            .showsAllCategories = showsAllCategories_,
            .income = totals(*income, TextTone::positive),
            .spending = totals(*spending, TextTone::warning),
            .leftToBudget = std::move(leftText),
            .spendingTable = keepingEqual(earlier != nullptr ? earlier->spendingTable : nullptr,
                                          std::move(spending)),
            .incomeTable = keepingEqual(earlier != nullptr ? earlier->incomeTable : nullptr,
                                        std::move(income))};
}

std::shared_ptr<const BudgetTable> BudgetView::table(const Lines& lines, CategoryKind kind) const {
    std::vector<const BudgetRow*> rows;
    for (const BudgetRow& row : *lines) {
        if (row.line.kind == kind) {
            rows.push_back(&row);
        }
    }
    // Of both kinds, so that the columns of both tables stand one beneath the other.
    return std::make_shared<const BudgetTable>(budgetColumns(), std::move(rows), lines,
                                               reachesOf(budgetColumns(), *lines), cellContext());
}

BudgetTotals BudgetView::totals(const BudgetTable& table, TextTone tint) const {
    const Decimal actual = sum(table.rows(), [](const BudgetRow* row) { return row->line.actual; });
    const Decimal budget = sumOfBudgets(table);
    const std::string& currencyCode = environment_.currencyCode();
    return {.actual = metric("Actual", actual, currencyCode, tint),
            .budget = metric("Budget", budget, currencyCode),
            .fraction = budget.isPositive() ? shareOfBudget(actual, budget) : 0,
            .hasActual = std::ranges::any_of(
                table.rows(), [](const BudgetRow* row) { return !row->line.actual.isZero(); })};
}

void BudgetView::setBudget(const UUID& categoryID, const Decimal& amount) {
    const LibraryStore& store = environment_.store;
    if (amount.isNaN() || amount == budgetOf(store.library(), categoryID) ||
        store.index().category(categoryID) == nullptr) {
        return;
    }
    environment_.store.mutate("Change Budget", [&](Library& library) {
        if (amount.isPositive()) {
            library.budget[categoryID] = amount;
        } else {
            library.budget.erase(categoryID);
        }
    });
}

void BudgetView::setBudgetText(const UUID& categoryID, const std::string& text) {
    AmountEntry entry(budgetOf(environment_.store.library(), categoryID));
    entry.edit(text);
    if (entry.explanation().empty()) {
        setBudget(categoryID, entry.value());
    }
}

std::vector<BudgetHint> BudgetView::hints(const UUID& categoryID) const {
    const auto averageText = [&](int months) {
        return currencyText(monthlyAverage(environment_.store.index(), categoryID, months,
                                           environment_.clock.now(), environment_.clock.calendar())
                                .toCents(),
                            environment_.currencyCode());
    };
    return {{"Last month", averageText(1)}, {"3-month average", averageText(3)}};
}

void BudgetView::showEntries(const UUID& categoryID) {
    show(actualLines(environment_.store.index(), categoryID, monthInterval(), false));
}

void BudgetView::showEntries(CategoryKind kind) {
    // Those without a line too: they get one as soon as an entry is filed under them.
    std::vector<std::optional<UUID>> ids;
    for (const Category& each : environment_.store.library().categories) {
        if (each.kind == kind) {
            ids.emplace_back(each.id);
        }
    }
    show({.title = std::string(titleOf(kind)),
          .interval = monthInterval(),
          .categories = std::move(ids),
          .isOfSpending = kind == CategoryKind::expense});
}

void BudgetView::show(FigureLines lines) {
    lines.detail = "Actual · " + content()->monthTitle;
    environment_.appState.linesWanted.notify(lines);
}

void BudgetView::autofill(int months) {
    const auto index = environment_.store.sharedIndex();
    environment_.store.mutate("Auto-Fill Budget", [&](Library& library) {
        oakfen::autofill(library, *index, months, environment_.clock.now(),
                         environment_.clock.calendar());
    });
    const std::string source = std::to_string(months) + "-month average";
    if (environment_.store.library() == index->library()) {
        // An offer to undo would take back some earlier step.
        environment_.appState.showNotice(
            {.text = "The " + source + " changes nothing in your budget"});
    } else {
        offerUndo(environment_, "Budget filled in from the " + source);
    }
}

void BudgetView::clearBudget() {
    if (environment_.store.library().budget.empty()) {
        return;
    }
    environment_.store.mutate("Clear Budget", [](Library& library) { library.budget.clear(); });
    offerUndo(environment_, "Budget cleared");
}

std::vector<MenuEntry> BudgetView::contextMenu(const UUID& categoryID, std::function<void()> edit) {
    const Category* category = environment_.store.index().category(categoryID);
    if (category == nullptr) {
        return {};
    }
    return {{.title = "Show Entries",
             .symbolName = "list.bullet.rectangle",
             .perform = [this, categoryID] { showEntries(categoryID); },
             .isEnabled = !line(*category).actual.isZero()},
            {.title = "Edit Budget", .symbolName = "pencil", .perform = std::move(edit)}};
}

std::vector<MenuEntry> BudgetView::autofillMenu() {
    return {{.title = "Fill from 3-Month Average", .perform = [this] { autofill(3); }},
            {.title = "Fill from 12-Month Average", .perform = [this] { autofill(12); }},
            {.title = "Clear Budget",
             .perform = [this] { clearBudget(); },
             .isEnabled = !environment_.store.library().budget.empty(),
             .isDestructive = true,
             .startsGroup = true}};
}

} // namespace oakfen

#pragma once

#include "Oakfen/MenuEntry.h"
#include "Oakfen/Views/Budget/BudgetTable.h"
#include "Oakfen/Views/Screen.h"

namespace oakfen {

struct FigureLines;

/// What all lines of a kind add up to.
struct BudgetTotals {
    Metric actual;
    Metric budget;
    double fraction = 0;
    /// Whether there is anything to see behind the actual amount.
    bool hasActual = false;

    friend bool operator==(const BudgetTotals&, const BudgetTotals&) = default;
};

/// Everything that the screen shows, as of one moment.
struct BudgetContent {
    /// "March 2026".
    std::string monthTitle;
    bool isThisMonth = false;
    bool showsAllCategories = false;
    BudgetTotals income;
    BudgetTotals spending;
    MoneyText leftToBudget;
    std::shared_ptr<const BudgetTable> spendingTable;
    std::shared_ptr<const BudgetTable> incomeTable;

    friend bool operator==(const BudgetContent&, const BudgetContent&) = default;
};

/// An amount that helps to find a budget: "Last month", "$551.53".
struct BudgetHint {
    std::string caption;
    std::string figure;

    friend bool operator==(const BudgetHint&, const BudgetHint&) = default;
};

/// What a month brought and took in each category, beside the amounts planned for any month. The
/// plan can be typed, or filled in from the past.
class BudgetView final : public Screen<BudgetContent> {
public:
    using Line = BudgetLine;

    explicit BudgetView(AppEnvironment& environment);

    /// The start of the month that is shown.
    [[nodiscard]] Date month() const { return month_; }
    void shift(int months);
    void showThisMonth();
    void setShowsAllCategories(bool shows);

    /// By full path, in plain order.
    [[nodiscard]] std::vector<Line> budgetLines() const;

    /// Plans the amount for the category, nothing where it isn't above zero.
    void setBudget(const UUID& categoryID, const Decimal& amount);
    /// The same with a text as it is typed; one that can't be read changes nothing.
    void setBudgetText(const UUID& categoryID, const std::string& text);
    /// What the category took up in the past.
    [[nodiscard]] std::vector<BudgetHint> hints(const UUID& categoryID) const;

    /// Shows the entries behind a line, or behind all lines of a kind.
    void showEntries(const UUID& categoryID);
    void showEntries(CategoryKind kind);

    /// Fills the budget from the average of that many whole months before this one.
    void autofill(int months);
    void clearBudget();

    /// What a line's context menu offers; `edit` leads to its amount.
    [[nodiscard]] std::vector<MenuEntry> contextMenu(const UUID& categoryID,
                                                     std::function<void()> edit);
    [[nodiscard]] std::vector<MenuEntry> autofillMenu();

private:
    using Lines = std::shared_ptr<const std::vector<BudgetRow>>;

    [[nodiscard]] BudgetContent derive(const BudgetContent* earlier) const override;
    [[nodiscard]] DateInterval monthInterval() const;
    [[nodiscard]] Line line(const Category& category) const;
    [[nodiscard]] std::shared_ptr<const BudgetTable> table(const Lines& lines,
                                                           CategoryKind kind) const;
    [[nodiscard]] BudgetTotals totals(const BudgetTable& table, TextTone tint) const;
    /// Shows the lines, which make up an actual amount of the month.
    void show(FigureLines lines);

    Date month_;
    bool showsAllCategories_ = false;
};

} // namespace oakfen

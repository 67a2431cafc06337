#pragma once

#include "Oakfen/Views/Budget/BudgetView.h"
#include "Oakfen/Widgets/Components/Page.h"

class QCheckBox;
class QMenu;
class QPushButton;

namespace oakfen {

class BudgetTableWidget;
class BudgetTotalsWidget;

/// Draws the budget screen and hands its input to the view.
class BudgetWidget final : public Page {
    Q_OBJECT

public:
    explicit BudgetWidget(AppEnvironment& environment, QWidget* parent = nullptr);
    ~BudgetWidget() override;

    [[nodiscard]] BudgetView& view() { return view_; }
    [[nodiscard]] BudgetTableWidget* spending() const { return spending_; }
    [[nodiscard]] BudgetTableWidget* income() const { return income_; }
    [[nodiscard]] QMenu* autofillMenu() const { return autofillMenu_; }

private:
    void addAutofill();
    void addMonthRow();
    void addShowsAll();
    void addTable(BudgetTableWidget* table);
    /// A button that shows another month, by a key too.
    [[nodiscard]] QPushButton* addMonthButton(const char* symbolName, const QString& help,
                                              const QKeySequence& keys, int months);
    void showContent();

    BudgetView view_;
    QMenu* autofillMenu_;
    QLabel* month_;
    QPushButton* thisMonth_;
    QCheckBox* showsAll_;
    BudgetTotalsWidget* totals_;
    BudgetTableWidget* spending_;
    BudgetTableWidget* income_;
    Subscription changed_;
};

} // namespace oakfen

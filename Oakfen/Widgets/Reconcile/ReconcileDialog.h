#pragma once

#include "Oakfen/Views/Reconcile/ReconcileView.h"
#include "Oakfen/Widgets/Components/LabelledFigure.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"

namespace oakfen {

class AmountField;
class CaptionedAmount;
class DateField;
class HintRow;
class LedgerTable;
class SymbolLabel;
class TableModel;

/// Draws the matching of a register with a statement.
class ReconcileDialog final : public SheetScaffold {
    Q_OBJECT

public:
    ReconcileDialog(AppEnvironment& environment, const Account& account, QWidget* parent = nullptr);

    [[nodiscard]] ReconcileView& view() { return view_; }
    [[nodiscard]] LedgerTable* table() const { return table_; }
    [[nodiscard]] AmountField* endingBalance() const { return endingBalance_; }
    [[nodiscard]] DateField* statementDate() const { return statementDate_; }
    [[nodiscard]] QPushButton* markAllButton() const { return markAll_; }
    [[nodiscard]] QPushButton* unmarkAllButton() const { return unmarkAll_; }
    /// Tells of an entry that is the whole difference, and of ticks that the date hides.
    [[nodiscard]] HintRow* hint() const { return hint_; }
    /// Says in words whether the statement is matched.
    [[nodiscard]] QLabel* verdict() const { return verdict_; }

protected:
    void save() override;
    /// Return takes a date or an amount and goes on: finishing is for who comes to its button.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addFields();
    void setUpTable();
    void addFooter();
    void addSaveForLater();
    /// Takes what was typed there and goes on to what comes next.
    void leaveField(const QObject* field);
    void showContent();
    /// What the statement and the register have to do with each other, while it can be told.
    void showVerdict(const ReconcileContent& shown);
    void showFinishTitle(const ReconcileContent& shown);
    void followHint();

    AppEnvironment& environment_;
    ReconcileView view_;
    TableModel* model_;
    DateField* statementDate_;
    AmountField* endingBalance_;
    LedgerTable* table_;
    HintRow* hint_;
    QPushButton* markAll_;
    QPushButton* unmarkAll_;
    CaptionedAmount* reconciled_;
    CaptionedAmount* cleared_;
    CaptionedAmount* difference_;
    SymbolLabel* mark_;
    QLabel* verdict_;
    Subscription changed_;
};

} // namespace oakfen

#pragma once

#include <QWidget>
#include <functional>

#include "Oakfen/Views/Budget/BudgetView.h"

class QLabel;

namespace oakfen {

class BudgetDelegate;
class BudgetField;
class LedgerTable;
class TableModel;

/// The lines of a kind, as high as they are, with amounts that are edited in their cells as in a
/// spreadsheet.
class BudgetTableWidget final : public QWidget {
    Q_OBJECT

public:
    BudgetTableWidget(BudgetView& view, const QString& title,
                      std::shared_ptr<const BudgetTable> table, QWidget* parent = nullptr);
    ~BudgetTableWidget() override;

    void showTable(std::shared_ptr<const BudgetTable> table);

    /// Edits the first amount, or the last; returns whether there is one.
    bool editEnd(bool first);

    [[nodiscard]] LedgerTable* table() const { return table_; }
    /// The field of the amount that is edited; hidden while none is.
    [[nodiscard]] BudgetField* field() const { return field_; }
    /// Whose amount is edited.
    [[nodiscard]] const std::optional<UUID>& editedID() const { return editedID_; }

    /// Called when Tab leads past the last amount, or back past the first; returns whether it led
    /// to another one.
    std::function<bool(bool forward)> passed = [](bool) { return false; };
    /// Called when the person has come to a place in the widget, which should be seen.
    std::function<void(const QRect& place)> reached = [](const QRect&) {};

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpTable();
    void setUpField();
    void setUpSize();

    [[nodiscard]] const BudgetLine* lineAt(int row) const;
    [[nodiscard]] QModelIndex budgetCell(int row) const;
    [[nodiscard]] std::optional<UUID> idAt(int row) const;
    /// The next line in that direction, -1 or 1, that can be edited by itself.
    [[nodiscard]] std::optional<UUID> idBeside(int row, int step) const;

    /// Lets the person edit the category's amount; returns whether that is so now.
    bool edit(const UUID& id);
    /// Goes on from the cell that is edited.
    bool step(int rows, bool isTab);
    /// Enters what was typed; false where it can't be read, and stays.
    bool enter();
    void takeBack();
    /// Puts the field away.
    void endEdit();
    /// Where the cell is now.
    void placeField();
    void followContent();

    [[nodiscard]] bool handleKey(QKeyEvent& event);
    void showEntriesAt(int row);
    void setHovered(const QModelIndex& index);
    void openContextMenu(const QPoint& point);
    void showCurrent();

    BudgetView& view_;
    std::shared_ptr<const BudgetTable> content_;
    TableModel* model_;
    LedgerTable* table_;
    BudgetDelegate* delegate_;
    BudgetField* field_;
    QLabel* empty_;
    std::optional<UUID> editedID_;
};

} // namespace oakfen

#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>
#include <functional>

#include "Oakfen/Views/Budget/BudgetView.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"

namespace oakfen {

/// Draws the lines of a budget: the ledger's cells, a bar for what is used up, a field's frame
/// where the pointer is over an amount that can be edited, and in the line whose amount is edited
/// what may help to find it.
class BudgetDelegate final : public QStyledItemDelegate {
public:
    /// `lineAt` returns the line of a row, or null.
    explicit BudgetDelegate(std::function<const BudgetLine*(int row)> lineAt,
                            QObject* parent = nullptr);

    /// The cell beneath the pointer.
    void setHovered(const QModelIndex& index) { hovered_ = index; }
    /// The line whose amount is edited, in a field that begins there; none with an index that is
    /// not valid.
    void setEdited(const QModelIndex& index, std::vector<BudgetHint> hints, int fieldLeft);

    /// Where the field of a cell stands.
    [[nodiscard]] static QRect fieldPlace(const QRect& cell);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    void paintCategory(QPainter& painter, QStyleOptionViewItem option,
                       const QModelIndex& index) const;
    void paintBudget(QPainter& painter, const QStyleOptionViewItem& option,
                     const QModelIndex& index) const;
    void paintActual(QPainter& painter, const QStyleOptionViewItem& option,
                     const QModelIndex& index) const;
    /// Draws the hints at the right of the room.
    void paintHints(QPainter& painter, QRect room, int nameWidth) const;

    struct HintsPlace {
        bool isOneLine = false;
        int width = 0;
    };

    [[nodiscard]] bool isEdited(const QModelIndex& index) const;
    /// What a cell has left of the field in the line that is edited, for the name and the hints.
    [[nodiscard]] QRect roomBesideField(const QRect& cell) const;
    /// How the hints stand in the room beside a name of that width.
    [[nodiscard]] HintsPlace placeHints(const QRect& room, int nameWidth) const;
    /// The cell of a category without what belongs to the field.
    [[nodiscard]] QRect namePlace(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const;

    std::function<const BudgetLine*(int row)> lineAt_;
    LedgerDelegate cells_;
    QPersistentModelIndex hovered_;
    QPersistentModelIndex edited_;
    std::vector<BudgetHint> hints_;
    int fieldLeft_ = 0;
};

} // namespace oakfen

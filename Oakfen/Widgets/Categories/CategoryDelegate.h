#pragma once

#include <QStyledItemDelegate>

#include "Oakfen/Views/Categories/CategoryTable.h"

namespace oakfen {

class TableModel;

/// Draws the rows of the category tree: subcategories are indented, the tops stand out by their
/// weight, and the row beneath the pointer is set off.
class CategoryDelegate final : public QStyledItemDelegate {
public:
    /// The model must hold rows of categories and outlive the delegate.
    explicit CategoryDelegate(const TableModel& model, QObject* parent = nullptr);

    /// The row beneath the pointer; -1 for none.
    [[nodiscard]] int hoveredRow() const { return hoveredRow_; }
    void setHoveredRow(int row) { hoveredRow_ = row; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    /// Tells the whole name where there is no room for it.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    [[nodiscard]] const CategoryRow& row(const QModelIndex& index) const;
    [[nodiscard]] QFont nameFont(const QModelIndex& index) const;
    /// The place of the name, with the mark that comes after it.
    [[nodiscard]] QRect namePlace(const QRect& cell, const QModelIndex& index) const;
    [[nodiscard]] int nameRoom(const QRect& place, const QModelIndex& index) const;
    void drawName(QPainter& painter, const QRect& place, const QModelIndex& index) const;

    const TableModel& model_;
    int hoveredRow_ = -1;
};

} // namespace oakfen

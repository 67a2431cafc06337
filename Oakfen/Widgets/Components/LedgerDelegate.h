#pragma once

#include <QStyledItemDelegate>

#include "Oakfen/Views/Components/Components.h"

namespace oakfen {

/// Draws the cells of ledger tables: one line of plain text (bank texts are never read as markup),
/// amounts in even digits at the right, marks as icons, ticks for cells with a check state.
class LedgerDelegate final : public QStyledItemDelegate {
public:
    /// What a model gives beside the display text.
    enum Role {
        /// A `TextTone` as an integer.
        ToneRole = Qt::UserRole + 1,
        /// True for an amount.
        FiguresRole,
        /// More text after the first, in the secondary tone.
        DetailRole,
        /// True where the detail must not be cut for the text.
        KeepsDetailRole,
        /// The name of an icon that stands instead of a text.
        SymbolRole,
        /// True for a heading or a total among the rows, which is set off by its weight.
        StrongRole,
    };

    /// The blank at either side of a cell.
    static constexpr int margin = 8;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// What the cell's text needs, without the detail after it.
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    /// Tells the whole text of a cell that has no room for it, before what the model adds.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

} // namespace oakfen

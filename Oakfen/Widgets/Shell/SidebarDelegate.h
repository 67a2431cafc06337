#pragma once

#include <QStyledItemDelegate>
#include <functional>

namespace oakfen {

/// What a line of the sidebar carries for its drawing.
enum SidebarRole {
    kindRole = Qt::UserRole,
    itemRole,    ///< which `SidebarItem` it selects
    symbolRole,  ///< the icon's name
    figureRole,  ///< the amount at the right
    compactRole, ///< the same in few characters
    negativeRole,
    detailRole, ///< the second line; empty for none
    badgeRole,
    dimmedRole,
};

enum class SidebarLine { group, item };

/// Draws the sidebar's lines: groups as small headings, items with icon, name and figure.
class SidebarDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// `isSelected` tells which line the main screen shows, whatever line has the focus.
    SidebarDelegate(std::function<bool(const QModelIndex&)> isSelected, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

private:
    static void paintGroup(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index);
    void paintItem(QPainter* painter, const QStyleOptionViewItem& option,
                   const QModelIndex& index) const;
    void paintTexts(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                    const QRect& texts) const;

    std::function<bool(const QModelIndex&)> isSelected_;
};

} // namespace oakfen

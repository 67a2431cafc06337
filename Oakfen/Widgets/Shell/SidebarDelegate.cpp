#include "Oakfen/Widgets/Shell/SidebarDelegate.h"

#include <QIcon>
#include <algorithm>
#include <cmath>
#include <utility>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int rowHeight = 30;
constexpr int rowHeightWithDetail = 44;
constexpr int groupHeight = 32;
constexpr int margin = 8;
constexpr int iconSize = 16;
constexpr qreal radius = 6;

bool isGroup(const QModelIndex& index) {
    return index.data(kindRole).toInt() == static_cast<int>(SidebarLine::group);
}

void paintBadge(QPainter* painter, QRect& space, const QString& text) {
    painter->setFont(Theme::font(TextStyle::captionStrong));
    const int height = 18;
    const int width = std::max(height, painter->fontMetrics().horizontalAdvance(text) + 12);
    const QRect pill(space.right() - width + 1, space.center().y() - (height / 2), width, height);
    painter->setPen(Qt::NoPen);
    painter->setBrush(Theme::color(ThemeColor::accent));
    painter->drawRoundedRect(pill, height / 2.0, height / 2.0);
    painter->setPen(Theme::color(ThemeColor::onAccent));
    painter->drawText(pill, Qt::AlignCenter, text);
    space.setRight(pill.left() - margin);
}

/// A ring for those who move by keyboard; the mouse needs none.
void paintFocus(QPainter* painter, const QStyleOptionViewItem& option, const QRectF& box) {
    constexpr QStyle::State keyboardFocus =
        QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    if ((option.state & keyboardFocus) != keyboardFocus) {
        return;
    }
    painter->setPen(QPen(Theme::color(ThemeColor::accent), 1));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace

SidebarDelegate::SidebarDelegate(std::function<bool(const QModelIndex&)> isSelected,
                                 QObject* parent)
    : QStyledItemDelegate(parent), isSelected_(std::move(isSelected)) {}

QSize SidebarDelegate::sizeHint(const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const int extra = std::max(0, option.fontMetrics.height() - 18);
    if (isGroup(index)) {
        return {100, groupHeight + extra};
    }
    const bool hasDetail = !index.data(detailRole).toString().isEmpty();
    return {100, hasDetail ? rowHeightWithDetail + (2 * extra) : rowHeight + extra};
}

void SidebarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (isGroup(index)) {
        paintGroup(painter, option, index);
    } else {
        paintItem(painter, option, index);
    }
    painter->restore();
}

void SidebarDelegate::paintGroup(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    const QRect box = option.rect.adjusted(margin, 6, -margin, 0);
    QRect space = box.adjusted(margin, 0, -margin, 0);
    painter->setFont(Theme::font(TextStyle::captionStrong));
    painter->setPen(Theme::color(ThemeColor::secondaryText));
    painter->drawText(space, Qt::AlignLeft | Qt::AlignVCenter,
                      index.data(Qt::DisplayRole).toString());
    const bool isExpanded = option.state.testFlag(QStyle::State_Open);
    const QRect chevron(space.right() - 9, space.center().y() - 5, 10, 10);
    symbolIcon(isExpanded ? "chevron.down" : "chevron.right", ThemeColor::secondaryText)
        .paint(painter, chevron);
    paintFocus(painter, option, box);
}

void SidebarDelegate::paintItem(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const QRect box = option.rect.adjusted(margin, 1, -margin, -1);
    const bool isSelected = isSelected_(index);
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    if (isSelected || option.state.testFlag(QStyle::State_MouseOver)) {
        QColor fill = Theme::color(isSelected ? ThemeColor::selection : ThemeColor::border);
        fill.setAlphaF(isSelected ? 1.0F : 0.5F);
        painter->setPen(Qt::NoPen);
        painter->setBrush(fill);
        painter->drawRoundedRect(box, radius, radius);
    }
    paintFocus(painter, option, box);

    QRect space = box.adjusted(margin, 0, -margin, 0);
    const QRect iconBox(space.left(), space.center().y() - (iconSize / 2), iconSize, iconSize);
    const bool isDimmed = index.data(dimmedRole).toBool();
    const ThemeColor iconColor = isSelected ? ThemeColor::accent : ThemeColor::secondaryText;
    symbolIcon(utf8(index.data(symbolRole).toString()), iconColor)
        .paint(painter, iconBox, Qt::AlignCenter, isEnabled ? QIcon::Normal : QIcon::Disabled);
    space.setLeft(iconBox.right() + margin + 2);

    const int badge = index.data(badgeRole).toInt();
    if (badge > 0) {
        paintBadge(painter, space, QString::number(badge));
    }

    const QString detail = index.data(detailRole).toString();
    QRect line = space;
    if (!detail.isEmpty()) {
        const int half = space.height() / 2;
        line.setBottom(space.top() + half + 1);
        const QRect second(space.left(), space.top() + half, space.width(), half - 3);
        painter->setFont(Theme::font(TextStyle::caption));
        painter->setPen(Theme::color(ThemeColor::secondaryText));
        painter->drawText(second, Qt::AlignLeft | Qt::AlignVCenter, detail);
    }

    painter->setFont(Theme::font(TextStyle::body));
    const QString figure = index.data(figureRole).toString();
    if (!figure.isEmpty()) {
        const int width = static_cast<int>(std::ceil(figureWidth(painter->font(), figure)));
        const bool isNegative = index.data(negativeRole).toBool();
        painter->setPen(Theme::color(isNegative ? ThemeColor::negative
                                     : isDimmed ? ThemeColor::secondaryText
                                                : ThemeColor::text));
        drawFigures(*painter, line, figure);
        line.setRight(line.right() - width - margin);
    }
    painter->setPen(Theme::color(isSelected ? ThemeColor::onSelection
                                 : isDimmed ? ThemeColor::secondaryText
                                            : ThemeColor::text));
    painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                      painter->fontMetrics().elidedText(index.data(Qt::DisplayRole).toString(),
                                                        Qt::ElideRight, line.width()));
}

} // namespace oakfen

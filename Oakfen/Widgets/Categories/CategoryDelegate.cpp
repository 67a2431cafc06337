#include "Oakfen/Widgets/Categories/CategoryDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "Oakfen/Widgets/Components/TableModel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

/// Beside the frame of the card.
constexpr int margin = 2 * Theme::grid - 1;
constexpr int indent = 3 * Theme::grid;
constexpr int markPadding = 6;
constexpr int textFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;

QString markOf(const QModelIndex& index) {
    return index.data(LedgerDelegate::DetailRole).toString();
}

int markWidth(const QString& mark) {
    const QFontMetrics metrics(Theme::font(TextStyle::caption));
    return mark.isEmpty() ? 0 : metrics.horizontalAdvance(mark) + (2 * markPadding);
}

void drawBackground(QPainter& painter, const QRect& cell, bool isSelected, bool isHovered) {
    if (isSelected) {
        painter.fillRect(cell, Theme::color(ThemeColor::selection));
    } else if (isHovered) {
        QColor color = Theme::color(ThemeColor::surfaceRaised);
        color.setAlphaF(0.8F);
        painter.fillRect(cell, color);
    }
}

/// A word on a small plate.
void drawMark(QPainter& painter, const QRect& place, const QString& mark) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::color(ThemeColor::surfaceRaised));
    constexpr qreal radius = 3;
    painter.drawRoundedRect(place, radius, radius);
    painter.setFont(Theme::font(TextStyle::caption));
    painter.setPen(Theme::color(ThemeColor::secondaryText));
    painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, mark);
}

} // namespace

CategoryDelegate::CategoryDelegate(const TableModel& model, QObject* parent)
    : QStyledItemDelegate(parent), model_(model) {}

const CategoryRow& CategoryDelegate::row(const QModelIndex& index) const {
    const auto& table = dynamic_cast<const Table<CategoryRow>&>(model_.content());
    return *table.rows()[static_cast<std::size_t>(index.row())];
}

QFont CategoryDelegate::nameFont(const QModelIndex& index) const {
    return Theme::font(row(index).isTopLevel ? TextStyle::bodyStrong : TextStyle::body);
}

QRect CategoryDelegate::namePlace(const QRect& cell, const QModelIndex& index) const {
    return cell.adjusted(margin + (row(index).isTopLevel ? 0 : indent), 0, -Theme::grid, 0);
}

int CategoryDelegate::nameRoom(const QRect& place, const QModelIndex& index) const {
    const int mark = markWidth(markOf(index));
    return std::max(0, place.width() - (mark > 0 ? mark + Theme::grid : 0));
}

void CategoryDelegate::drawName(QPainter& painter, const QRect& place,
                                const QModelIndex& index) const {
    const QFontMetrics metrics(painter.font());
    const QString name =
        metrics.elidedText(index.data().toString(), Qt::ElideRight, nameRoom(place, index));
    painter.drawText(place, textFlags, name);
    if (const QString mark = markOf(index); !mark.isEmpty()) {
        const int height = QFontMetrics(Theme::font(TextStyle::caption)).height() + 2;
        const QRect plate(place.left() + metrics.horizontalAdvance(name) + Theme::grid,
                          place.center().y() - (height / 2) + 1, markWidth(mark), height);
        drawMark(painter, plate, mark);
    }
}

void CategoryDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    painter->save();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    drawBackground(*painter, option.rect, isSelected, index.row() == hoveredRow_);
    const auto tone = static_cast<TextTone>(index.data(LedgerDelegate::ToneRole).toInt());
    const bool isNeutral = tone == TextTone::primary || tone == TextTone::secondary;
    painter->setPen(
        Theme::color(isSelected && isNeutral ? ThemeColor::onSelection : themeColor(tone)));
    switch (index.column()) {
    case 0:
        painter->setFont(nameFont(index));
        drawName(*painter, namePlace(option.rect, index), index);
        break;
    case 1:
        painter->setFont(Theme::font(TextStyle::caption));
        drawFigures(*painter, option.rect.adjusted(0, 0, -Theme::grid, 0), index.data().toString());
        break;
    default:
        painter->setFont(nameFont(index));
        if (option.state.testFlag(QStyle::State_MouseOver) && !isSelected && isNeutral) {
            // It leads to its entries.
            painter->setPen(Theme::color(ThemeColor::accent));
        }
        drawFigures(*painter, option.rect.adjusted(0, 0, -margin, 0), index.data().toString());
    }
    painter->restore();
}

QSize CategoryDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& index) const {
    const QFont font = nameFont(index);
    const QString text = index.data().toString();
    return {static_cast<int>(figureWidth(font, text)) + (2 * margin), Theme::tableRowHeight};
}

bool CategoryDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                 const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() == QEvent::ToolTip && index.column() == 0) {
        const QString name = index.data().toString();
        const QRect place = namePlace(option.rect, index);
        if (QFontMetrics(nameFont(index)).horizontalAdvance(name) > nameRoom(place, index)) {
            QToolTip::showText(event->globalPos(), plainToolTip(name), view);
            return true;
        }
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

} // namespace oakfen

#include "Oakfen/Widgets/Components/LedgerDelegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int iconSize = 15;

QFont fontOf(const QStyleOptionViewItem& option, const QModelIndex& index) {
    QFont font = option.font;
    font.setBold(font.bold() || index.data(LedgerDelegate::StrongRole).toBool());
    return font;
}

TextTone toneOf(const QModelIndex& index) {
    return static_cast<TextTone>(index.data(LedgerDelegate::ToneRole).toInt());
}

/// A selected row keeps the tones that mean something and gives the others its own colour.
QColor colorOf(TextTone tone, bool isSelected) {
    const bool isNeutral = tone == TextTone::primary || tone == TextTone::secondary;
    return Theme::color(isSelected && isNeutral ? ThemeColor::onSelection : themeColor(tone));
}

/// How much of the width is for the text, whose first letters are seen whatever comes after it.
int roomOfText(const QFontMetrics& metrics, const QString& detail, int width) {
    const int rest = width - metrics.horizontalAdvance(detail) - LedgerDelegate::margin;
    return std::clamp(rest, width / 3, width);
}

int textWidth(const QStyleOptionViewItem& option, const QModelIndex& index) {
    const QFont font = fontOf(option, index);
    const QString text = index.data().toString();
    return index.data(LedgerDelegate::FiguresRole).toBool()
               ? static_cast<int>(std::ceil(figureWidth(font, text)))
               : QFontMetrics(font).horizontalAdvance(text);
}

/// Two tooltips of plain texts as one, each on a line of its own.
QString joined(const QString& first, const QString& second) {
    const QString begin = QStringLiteral("<qt>");
    const QString end = QStringLiteral("</qt>");
    return first.chopped(end.size()) + QStringLiteral("<br>") +
           (second.startsWith(begin) ? second.mid(begin.size()) : second + end);
}

/// Twice the height of a text's middle above the line that it stands on.
int middleOf(const QFontMetrics& metrics) {
    return metrics.ascent() - metrics.descent();
}

void drawText(QPainter& painter, const QRect& rect, const QModelIndex& index, bool isSelected) {
    const QFontMetrics metrics(painter.font());
    const QFont detailFont = Theme::font(TextStyle::caption);
    const QFontMetrics detailMetrics(detailFont);
    const QString detail = index.data(LedgerDelegate::DetailRole).toString();
    const bool keepsDetail = index.data(LedgerDelegate::KeepsDetailRole).toBool();
    const int room = keepsDetail ? roomOfText(detailMetrics, detail, rect.width()) : rect.width();
    const QString text = metrics.elidedText(index.data().toString(), Qt::ElideRight, room);
    constexpr int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;
    painter.setPen(colorOf(toneOf(index), isSelected));
    painter.drawText(rect, flags, text);

    const int used = metrics.horizontalAdvance(text) + LedgerDelegate::margin;
    // Smaller, on the line that the text stands on.
    const int lower = (middleOf(metrics) - middleOf(detailMetrics)) / 2;
    const QRect rest = rect.adjusted(used, lower, 0, lower);
    if (!detail.isEmpty() && rest.width() > metrics.averageCharWidth() * 3) {
        painter.setFont(detailFont);
        painter.setPen(colorOf(TextTone::secondary, isSelected));
        painter.drawText(rest, flags,
                         detailMetrics.elidedText(detail, Qt::ElideRight, rest.width()));
    }
}

/// An amount without room for all its digits must not look like a smaller one.
void drawAmount(QPainter& painter, const QRect& rect, const QString& text) {
    if (figureWidth(painter.font(), text) <= rect.width()) {
        drawFigures(painter, rect, text);
        return;
    }
    const QFontMetrics metrics(painter.font());
    painter.drawText(rect, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(text, Qt::ElideRight, rect.width()));
}

void drawTick(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) {
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    QStyleOptionViewItem box = option;
    box.rect.setSize({style->pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget),
                      style->pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget)});
    box.rect.moveCenter(option.rect.center());
    const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    box.state.setFlag(QStyle::State_HasFocus, false);
    box.state.setFlag(isTicked ? QStyle::State_On : QStyle::State_Off);
    // A tick that changes nothing looks it.
    box.state.setFlag(QStyle::State_Enabled, toneOf(index) != TextTone::secondary);
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, option.widget);
}

} // namespace

void LedgerDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    painter->save();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    if (isSelected) {
        painter->fillRect(option.rect, Theme::color(ThemeColor::selection));
    }
    const QString symbol = index.data(SymbolRole).toString();
    const QRect content = option.rect.adjusted(margin, 0, -margin, 0);
    painter->setFont(fontOf(option, index));
    if (index.data(Qt::CheckStateRole).isValid()) {
        drawTick(*painter, option, index);
    } else if (!symbol.isEmpty()) {
        QRect icon(0, 0, iconSize, iconSize);
        icon.moveCenter(option.rect.center());
        symbolIcon(utf8(symbol), themeColor(toneOf(index))).paint(painter, icon);
    } else if (index.data(FiguresRole).toBool()) {
        painter->setPen(colorOf(toneOf(index), isSelected));
        drawAmount(*painter, content, index.data().toString());
    } else {
        drawText(*painter, content, index, isSelected);
    }
    painter->restore();
}

QSize LedgerDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const bool isMark =
        index.data(Qt::CheckStateRole).isValid() || !index.data(SymbolRole).toString().isEmpty();
    const int content = isMark ? iconSize : textWidth(option, index);
    return {content + (2 * margin), Theme::tableRowHeight};
}

bool LedgerDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                               const QStyleOptionViewItem& option, const QModelIndex& index) {
    const bool isCut = textWidth(option, index) > option.rect.width() - (2 * margin);
    if (event->type() != QEvent::ToolTip || !isCut) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    const QString whole = plainToolTip(index.data().toString());
    const QString added = index.data(Qt::ToolTipRole).toString();
    QToolTip::showText(event->globalPos(), added.isEmpty() ? whole : joined(whole, added), view);
    return true;
}

} // namespace oakfen

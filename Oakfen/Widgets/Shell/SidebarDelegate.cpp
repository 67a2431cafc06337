#include "Oakfen/Widgets/Shell/SidebarDelegate.h"

#include <QIcon>
#include <algorithm>
#include <cmath>
#include <utility>

#include "Oakfen/Widgets/Components/FigureFit.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int rowHeight = 30;
constexpr int groupHeight = 32;
/// Of one line among several.
constexpr int lineHeight = 18;
/// Above and below several lines together.
constexpr int linesMargin = 8;
constexpr int margin = 8;
constexpr int groupTop = 6;
constexpr int iconSize = 16;
constexpr int chevronSize = 10;
constexpr qreal radius = 6;

bool isGroup(const QModelIndex& index) {
    return index.data(kindRole).toInt() == static_cast<int>(SidebarLine::group);
}

/// What larger type needs more in each line.
int extraHeight(const QStyleOptionViewItem& option) {
    return std::max(0, option.fontMetrics.height() - lineHeight);
}

/// The width of the whole list, with or without a scroll bar: amounts stay where they are when it
/// comes or goes.
int listWidth(const QStyleOptionViewItem& option) {
    return option.widget != nullptr ? option.widget->width() : option.rect.width();
}

/// What is to the left of an item's texts: its icon.
int besideTexts(const QModelIndex& index) {
    return isGroup(index) ? 0 : iconSize + margin + 2;
}

int textsWidth(const QStyleOptionViewItem& option, const QModelIndex& index) {
    return listWidth(option) - (4 * margin) - besideTexts(index);
}

QFont titleFont(const QModelIndex& index) {
    return Theme::font(isGroup(index) ? TextStyle::captionStrong : TextStyle::body);
}

QFont figureFont(const QModelIndex& index) {
    return Theme::font(isGroup(index) ? TextStyle::caption : TextStyle::body);
}

TitledFigureLayout layOutTexts(const QStyleOptionViewItem& option, const QModelIndex& index) {
    const int width = textsWidth(option, index);
    const int titleWidth = isGroup(index) ? width - chevronSize - margin : width;
    return layOutTitledFigure(
        {titleFont(index), index.data(Qt::DisplayRole).toString()},
        {Theme::font(TextStyle::caption), index.data(detailRole).toString()}, figureFont(index),
        {index.data(figureRole).toString(), index.data(compactRole).toString()}, titleWidth, width);
}

/// Where the texts of the line stand.
QRect textsPlace(const QStyleOptionViewItem& option, const QModelIndex& index) {
    return {option.rect.left() + (2 * margin) + besideTexts(index), option.rect.top(),
            textsWidth(option, index), option.rect.height()};
}

/// The places of the lines of text, one beneath the other, in the middle of the height.
QRect textLine(const QRect& texts, const QStyleOptionViewItem& option, int line, int count) {
    if (count == 1) {
        return texts;
    }
    const int height = lineHeight + extraHeight(option);
    const int top = texts.top() + ((texts.height() - (count * height)) / 2);
    return {texts.left(), top + (line * height), texts.width(), height};
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
    const int lines = layOutTexts(option, index).lines;
    const int extra = lines * extraHeight(option);
    if (isGroup(index)) {
        return {100, groupHeight + ((lines - 1) * lineHeight) + extra};
    }
    return {100, lines == 1 ? rowHeight + extra : (lines * lineHeight) + linesMargin + extra};
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
                                 const QModelIndex& index) {
    const QRect box = option.rect.adjusted(margin, groupTop, -margin, 0);
    const QRect texts = textsPlace(option, index).adjusted(0, groupTop, 0, 0);
    const TitledFigureLayout layout = layOutTexts(option, index);
    const QRect first = textLine(texts, option, 0, layout.lines);
    painter->setFont(titleFont(index));
    painter->setPen(Theme::color(ThemeColor::secondaryText));
    const QString title = index.data(Qt::DisplayRole).toString();
    painter->drawText(first, Qt::AlignLeft | Qt::AlignVCenter, title);
    const int titleWidth = painter->fontMetrics().horizontalAdvance(title);
    const bool isExpanded = option.state.testFlag(QStyle::State_Open);
    const QRect chevron(first.left() + titleWidth + (margin / 2),
                        first.center().y() - (chevronSize / 2), chevronSize, chevronSize);
    symbolIcon(isExpanded ? "chevron.down" : "chevron.right", ThemeColor::secondaryText)
        .paint(painter, chevron);
    painter->setFont(figureFont(index));
    drawFigures(*painter, textLine(texts, option, layout.figureLine, layout.lines), layout.figure);
    paintFocus(painter, option, box);
}

void SidebarDelegate::paintItem(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const QRect texts = textsPlace(option, index);
    QRect box = option.rect.adjusted(margin, 1, -margin, -1);
    // Not as far as the list goes where the scroll bar is.
    box.setRight(std::min(option.rect.right(), listWidth(option) - 1 - margin));
    const bool isSelected = isSelected_(index);
    if (isSelected || option.state.testFlag(QStyle::State_MouseOver)) {
        QColor fill = Theme::color(isSelected ? ThemeColor::selection : ThemeColor::border);
        fill.setAlphaF(isSelected ? 1.0F : 0.5F);
        painter->setPen(Qt::NoPen);
        painter->setBrush(fill);
        painter->drawRoundedRect(box, radius, radius);
    }
    paintFocus(painter, option, box);
    const QRect iconBox(box.left() + margin, texts.center().y() - (iconSize / 2), iconSize,
                        iconSize);
    const ThemeColor iconColor = isSelected ? ThemeColor::accent : ThemeColor::secondaryText;
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    symbolIcon(utf8(index.data(symbolRole).toString()), iconColor)
        .paint(painter, iconBox, Qt::AlignCenter, isEnabled ? QIcon::Normal : QIcon::Disabled);
    paintTexts(painter, option, index, texts);
}

void SidebarDelegate::paintTexts(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index, const QRect& texts) const {
    const TitledFigureLayout layout = layOutTexts(option, index);
    const bool isDimmed = index.data(dimmedRole).toBool();
    const auto line = [&](int number) { return textLine(texts, option, number, layout.lines); };

    QRect nameLine = line(0);
    const int badge = index.data(badgeRole).toInt();
    if (badge > 0) {
        paintBadge(painter, nameLine, QString::number(badge));
    }
    const QString detail = index.data(detailRole).toString();
    if (!detail.isEmpty()) {
        painter->setFont(Theme::font(TextStyle::caption));
        painter->setPen(Theme::color(ThemeColor::secondaryText));
        painter->drawText(line(1), Qt::AlignLeft | Qt::AlignVCenter, detail);
    }
    painter->setFont(figureFont(index));
    if (!layout.figure.isEmpty()) {
        const bool isNegative = index.data(negativeRole).toBool();
        painter->setPen(Theme::color(isNegative ? ThemeColor::negative
                                     : isDimmed ? ThemeColor::secondaryText
                                                : ThemeColor::text));
        drawFigures(*painter, line(layout.figureLine), layout.figure);
    }
    if (layout.figureLine == 0) {
        const qreal width = figureWidth(painter->font(), layout.figure);
        nameLine.setRight(nameLine.right() - static_cast<int>(std::ceil(width)));
    }
    painter->setFont(titleFont(index));
    painter->setPen(Theme::color(isSelected_(index) ? ThemeColor::onSelection
                                 : isDimmed         ? ThemeColor::secondaryText
                                                    : ThemeColor::text));
    painter->drawText(nameLine, Qt::AlignLeft | Qt::AlignVCenter,
                      painter->fontMetrics().elidedText(index.data(Qt::DisplayRole).toString(),
                                                        Qt::ElideRight, nameLine.width()));
}

} // namespace oakfen

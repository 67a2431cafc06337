#include "Oakfen/Widgets/Budget/BudgetDelegate.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "Oakfen/Widgets/Components/BudgetBarWidget.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr int gap = 2 * Theme::grid;
/// A card's padding, less its border and the cell's own margin.
constexpr int firstIndent = 7;
constexpr int barHeight = 6;

std::string_view columnAt(const QModelIndex& index) {
    return budgetColumns()[static_cast<std::size_t>(index.column())].head.id;
}

int widthOf(const BudgetHint& hint, const QFont& caption, const QFont& figure) {
    return QFontMetrics(caption).horizontalAdvance(qt(hint.caption + ' ')) +
           static_cast<int>(std::ceil(figureWidth(figure, qt(hint.figure))));
}

/// Draws the hint so that it ends with the place.
void drawHint(QPainter& painter, const QRect& place, const BudgetHint& hint, const QFont& caption,
              const QFont& figure) {
    painter.setFont(figure);
    painter.setPen(Theme::color(ThemeColor::text));
    drawFigures(painter, place, qt(hint.figure));
    painter.setFont(caption);
    painter.setPen(Theme::color(ThemeColor::secondaryText));
    const QPoint left(place.right() + 1 - widthOf(hint, caption, figure), place.top());
    painter.drawText(QRect(left, place.bottomRight()), Qt::AlignLeft | Qt::AlignVCenter,
                     qt(hint.caption));
}

/// Of hints that stand one above the other.
QFont smallFigure() {
    QFont font = Theme::font(TextStyle::axis);
    font.setWeight(Theme::font(TextStyle::captionStrong).weight());
    return font;
}

int widthOfName(const QStyleOptionViewItem& option, const QModelIndex& index) {
    return QFontMetrics(option.font).horizontalAdvance(index.data().toString());
}

} // namespace

BudgetDelegate::BudgetDelegate(std::function<const BudgetLine*(int row)> lineAt, QObject* parent)
    : QStyledItemDelegate(parent), lineAt_(std::move(lineAt)) {}

void BudgetDelegate::setEdited(const QModelIndex& index, std::vector<BudgetHint> hints,
                               int fieldLeft) {
    edited_ = index;
    hints_ = std::move(hints);
    fieldLeft_ = fieldLeft;
}

QRect BudgetDelegate::fieldPlace(const QRect& cell) {
    constexpr int above = 2;
    return cell.adjusted(Theme::grid, above, 0, -above);
}

void BudgetDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
    if (option.state.testFlag(QStyle::State_Selected)) {
        painter->fillRect(option.rect, Theme::color(ThemeColor::selection));
    } else if (isEdited(index)) {
        painter->fillRect(option.rect, Theme::color(ThemeColor::surfaceRaised));
    } else if (hovered_.isValid() && index.row() == hovered_.row()) {
        QColor raised = Theme::color(ThemeColor::surfaceRaised);
        raised.setAlphaF(0.8F);
        painter->fillRect(option.rect, raised);
    }
    painter->save();
    const std::string_view column = columnAt(index);
    if (column == "category") {
        paintCategory(*painter, option, index);
    } else if (column == "budget") {
        paintBudget(*painter, option, index);
    } else if (column == "actual") {
        paintActual(*painter, option, index);
    } else if (column != "progress") {
        cells_.paint(painter, option, index);
    } else if (const BudgetLine* line = lineAt_(index.row())) {
        QRect bar = option.rect.adjusted(3 * Theme::grid, 0, 1 - gap, 0);
        bar.setTop(option.rect.top() + ((option.rect.height() - barHeight) / 2));
        bar.setHeight(barHeight);
        drawBudgetBar(*painter, bar, budgetBar(line->fraction()));
    }
    painter->restore();
}

bool BudgetDelegate::isEdited(const QModelIndex& index) const {
    return edited_.isValid() && index.row() == edited_.row();
}

QRect BudgetDelegate::roomBesideField(const QRect& cell) const {
    QRect room = cell.adjusted(firstIndent + LedgerDelegate::margin, 0, -Theme::grid, 0);
    room.setRight(std::min(room.right(), fieldLeft_ - gap));
    return room;
}

BudgetDelegate::HintsPlace BudgetDelegate::placeHints(const QRect& room, int nameWidth) const {
    int inOneLine = Theme::grid;
    int stacked = 0;
    for (const BudgetHint& hint : hints_) {
        inOneLine += gap + widthOf(hint, Theme::font(TextStyle::caption),
                                   Theme::font(TextStyle::captionStrong));
        stacked = std::max(stacked, widthOf(hint, Theme::font(TextStyle::axis), smallFigure()));
    }
    const bool isOneLine = inOneLine + nameWidth <= room.width();
    return {.isOneLine = isOneLine, .width = isOneLine ? inOneLine : stacked};
}

QRect BudgetDelegate::namePlace(const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    QRect place = option.rect.adjusted(firstIndent, 0, 0, 0);
    if (isEdited(index)) {
        const QRect room = roomBesideField(option.rect);
        place.setRight(room.right() - placeHints(room, widthOfName(option, index)).width);
    }
    return place;
}

void BudgetDelegate::paintCategory(QPainter& painter, QStyleOptionViewItem option,
                                   const QModelIndex& index) const {
    if (isEdited(index)) {
        paintHints(painter, roomBesideField(option.rect), widthOfName(option, index));
    }
    option.rect = namePlace(option, index);
    cells_.paint(&painter, option, index);
}

void BudgetDelegate::paintHints(QPainter& painter, QRect room, int nameWidth) const {
    if (placeHints(room, nameWidth).isOneLine) {
        const QFont caption = Theme::font(TextStyle::caption);
        const QFont figure = Theme::font(TextStyle::captionStrong);
        room.setRight(room.right() - Theme::grid);
        for (auto hint = hints_.rbegin(); hint != hints_.rend(); ++hint) {
            drawHint(painter, room, *hint, caption, figure);
            room.setRight(room.right() - widthOf(*hint, caption, figure) - gap);
        }
        return;
    }
    // One above the other, in letters small enough for a row.
    room.setHeight(room.height() / static_cast<int>(std::max<std::size_t>(hints_.size(), 1)));
    for (const BudgetHint& hint : hints_) {
        drawHint(painter, room, hint, Theme::font(TextStyle::axis), smallFigure());
        room.translate(0, room.height());
    }
}

void BudgetDelegate::paintBudget(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    if (isEdited(index)) {
        // The field covers it.
        return;
    }
    if (index == hovered_) {
        constexpr qreal radius = 5;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Theme::color(ThemeColor::border));
        painter.setBrush(Theme::color(ThemeColor::surface));
        painter.drawRoundedRect(QRectF(fieldPlace(option.rect)).adjusted(0.5, 0.5, -0.5, -0.5),
                                radius, radius);
    }
    QStyleOptionViewItem cell = option;
    cell.rect.adjust(0, 0, -1, 0);
    // The frame would be painted over by the colour of the selection.
    cell.state.setFlag(QStyle::State_Selected,
                       option.state.testFlag(QStyle::State_Selected) && index != hovered_);
    cells_.paint(&painter, cell, index);
}

void BudgetDelegate::paintActual(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    const BudgetLine* line = lineAt_(index.row());
    if (index != hovered_ || line == nullptr || line->actual.isZero()) {
        cells_.paint(&painter, option, index);
        return;
    }
    painter.setFont(option.font);
    painter.setPen(Theme::color(ThemeColor::accent));
    const QRect place = option.rect.adjusted(LedgerDelegate::margin, 0, -LedgerDelegate::margin, 0);
    const QString text = index.data().toString();
    drawFigures(painter, place, text);
    const int width = static_cast<int>(std::ceil(figureWidth(option.font, text)));
    const int base = place.center().y() + (QFontMetrics(option.font).ascent() / 2) + 2;
    painter.drawLine(place.right() + 1 - width, base, place.right(), base);
}

bool BudgetDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                               const QStyleOptionViewItem& option, const QModelIndex& index) {
    QStyleOptionViewItem drawn = option;
    if (columnAt(index) == "category") {
        // What is cut there is told whole.
        drawn.rect = namePlace(option, index);
    }
    return cells_.helpEvent(event, view, drawn, index);
}

} // namespace oakfen

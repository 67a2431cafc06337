#include "Oakfen/Widgets/Dashboard/DashboardGrid.h"

#include <QEvent>
#include <algorithm>
#include <utility>
#include <vector>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int gap = 2 * Theme::grid;
constexpr int leastColumnWidth = 400;
constexpr int mostColumns = 3;

/// How high each card is at least, so that those of two columns end together.
constexpr std::array<int, DashboardGrid::cardCount> usualHeights{200, 200, 206, 306, 240, 140};

using Column = std::vector<std::size_t>;

/// The cards of each column: all in one, or charts and figures beside bills and alerts.
std::vector<Column> columnsOf(int count) {
    if (count == 1) {
        return {{0, 1, 2, 3, 4, 5}};
    }
    return {{0, 2, 4}, {1, 3, 5}};
}

int widthOf(int width, int columns) {
    return (width - ((columns - 1) * gap)) / columns;
}

} // namespace

DashboardGrid::DashboardGrid(const std::array<QWidget*, cardCount>& cards, QWidget* parent)
    : QWidget(parent), cards_(cards) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    for (QWidget* card : cards_) {
        card->setParent(this);
    }
}

int DashboardGrid::columnCount(int width) {
    return std::clamp((width + gap) / (leastColumnWidth + gap), 1, mostColumns);
}

int DashboardGrid::heightForWidth(int width) const {
    return places(width).second;
}

QSize DashboardGrid::sizeHint() const {
    const int width = (2 * leastColumnWidth) + gap;
    return {width, heightForWidth(width)};
}

QSize DashboardGrid::minimumSizeHint() const {
    int width = 0;
    for (const QWidget* card : cards_) {
        width = std::max(width, card->minimumSizeHint().width());
    }
    return {width, 0};
}

int DashboardGrid::heightOf(std::size_t card, int width) const {
    const QWidget& widget = *cards_[card];
    const int needed = widget.hasHeightForWidth() ? widget.heightForWidth(width)
                                                  : widget.minimumSizeHint().height();
    return std::max(usualHeights[card], needed);
}

std::pair<DashboardGrid::Places, int> DashboardGrid::places(int width) const {
    return columnCount(width) == mostColumns ? placesInRows(width) : placesInColumns(width);
}

std::pair<DashboardGrid::Places, int> DashboardGrid::placesInColumns(int width) const {
    const std::vector<Column> columns = columnsOf(columnCount(width));
    const int columnWidth = widthOf(width, static_cast<int>(columns.size()));
    Places places;
    // The first two stand side by side and so share their height.
    const int firstHeight = std::max(heightOf(0, columnWidth), heightOf(1, columnWidth));
    int height = 0;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const int left = static_cast<int>(column) * (columnWidth + gap);
        int top = 0;
        for (const std::size_t card : columns[column]) {
            const bool isFirst = columns.size() > 1 && top == 0;
            places[card] = {left, top, columnWidth,
                            isFirst ? firstHeight : heightOf(card, columnWidth)};
            top += places[card].height() + gap;
        }
        height = std::max(height, top - gap);
    }
    for (const Column& column : columns) {
        // The last card of a column takes what is left.
        places[column.back()].setBottom(height - 1);
    }
    return {places, height};
}

std::pair<DashboardGrid::Places, int> DashboardGrid::placesInRows(int width) const {
    const int columnWidth = widthOf(width, mostColumns);
    Places places;
    int top = 0;
    for (std::size_t first = 0; first < cardCount; first += mostColumns) {
        int height = 0;
        for (std::size_t card = first; card < first + mostColumns; ++card) {
            height = std::max(height, heightOf(card, columnWidth));
        }
        for (std::size_t card = first; card < first + mostColumns; ++card) {
            // What doesn't divide evenly goes to the gaps, so that the last one ends at the edge.
            const int left =
                static_cast<int>(card - first) * (width - columnWidth) / (mostColumns - 1);
            places[card] = {left, top, columnWidth, height};
        }
        top += height + gap;
    }
    return {places, top - gap};
}

void DashboardGrid::place() {
    const auto [all, height] = places(width());
    for (std::size_t card = 0; card < cardCount; ++card) {
        cards_[card]->setGeometry(all[card]);
    }
}

void DashboardGrid::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

bool DashboardGrid::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        // A card needs more room or less.
        updateGeometry();
        place();
    }
    return QWidget::event(event);
}

} // namespace oakfen

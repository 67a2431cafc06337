#include "Oakfen/Widgets/Goals/CardGrid.h"

#include <QEvent>
#include <algorithm>
#include <utility>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int gap = 2 * Theme::grid;
constexpr int usualLeastWidth = 38 * Theme::grid;

int heightOf(const QWidget& card, int width) {
    return card.hasHeightForWidth() ? card.heightForWidth(width) : card.sizeHint().height();
}

} // namespace

void CardGrid::showCards(std::vector<QWidget*> cards) {
    cards_ = std::move(cards);
    place();
}

bool CardGrid::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        // What a card shows may need other room.
        place();
    }
    return QWidget::event(event);
}

void CardGrid::resizeEvent(QResizeEvent* /*event*/) {
    place();
}

int CardGrid::leastWidth() const {
    int least = usualLeastWidth;
    for (const QWidget* card : cards_) {
        least = std::max(least, card->minimumSizeHint().width());
    }
    return least;
}

void CardGrid::place() {
    const int least = leastWidth();
    setMinimumWidth(least);
    const int room = std::max(width(), least);
    const int columns = std::max(1, (room + gap) / (least + gap));
    // From the edges of all columns, so that the last one ends where the page does.
    const auto leftOf = [&](int column) { return column * (room + gap) / columns; };
    const auto widthOf = [&](int column) { return leftOf(column + 1) - gap - leftOf(column); };
    const int count = static_cast<int>(cards_.size());
    int top = 0;
    for (int first = 0; first < count; first += columns) {
        const int end = std::min(count, first + columns);
        int height = 0;
        for (int each = first; each < end; ++each) {
            height = std::max(height, heightOf(*card(each), widthOf(each - first)));
        }
        for (int each = first; each < end; ++each) {
            const int column = each - first;
            card(each)->setGeometry(leftOf(column), top, widthOf(column), height);
        }
        top += height + gap;
    }
    setFixedHeight(std::max(0, top - gap));
}

} // namespace oakfen

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Theme/Theme.h"

// Which rows the keyboard moves to and commands are about.
namespace oakfen {

int LedgerTable::targetRow() const {
    if (selectionModel() == nullptr) {
        return -1;
    }
    const QModelIndex current = currentIndex();
    const QItemSelection selected = selectionModel()->selection();
    int first = -1;
    for (const QItemSelectionRange& range : selected) {
        if (current.isValid() && range.top() <= current.row() && current.row() <= range.bottom()) {
            return current.row();
        }
        first = first < 0 ? range.top() : std::min(first, range.top());
    }
    return first;
}

bool LedgerTable::isTargetInSight() const {
    const int row = targetRow();
    if (row < 0) {
        return false;
    }
    const int top = rowViewportPosition(row);
    return top + rowHeight(row) > 0 && top < viewport()->height();
}

void LedgerTable::bringTargetIntoSight() {
    const int row = targetRow();
    if (row < 0) {
        return;
    }
    const int scrolledAcross = horizontalScrollBar()->value();
    scrollTo(model()->index(row, std::max(currentIndex().column(), 0)));
    horizontalScrollBar()->setValue(scrolledAcross);
}

void LedgerTable::goTo(int row) {
    goal_ = model()->index(row, std::max(currentIndex().column(), 0));
    if (!goal_.isValid()) {
        return;
    }
    if (goal_ == currentIndex()) {
        selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
    }
    // Where a selection begins the toolkit keeps to itself, and moves only with a key.
    QKeyEvent step(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QTableView::keyPressEvent(&step);
    goal_ = {};
    bringTargetIntoSight();
}

void LedgerTable::selectCurrentRow() {
    if (currentIndex().isValid()) {
        goTo(currentIndex().row());
    }
}

bool LedgerTable::isSelectedAlone(int row) const {
    const QItemSelection selected = selectionModel()->selection();
    return selected.size() == 1 && selected.front().top() == row &&
           selected.front().bottom() == row;
}

void LedgerTable::keyPressEvent(QKeyEvent* event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    switch (event->key()) {
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if ((modifiers & ~(Qt::ShiftModifier | Qt::ControlModifier)) == Qt::NoModifier) {
            jump(*event);
            return;
        }
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        // The first step is onto the row with the ring.
        if (modifiers == Qt::NoModifier && currentIndex().isValid() &&
            !selectionModel()->hasSelection()) {
            selectCurrentRow();
            return;
        }
        break;
    default:
        break;
    }
    QTableView::keyPressEvent(event);
}

void LedgerTable::jump(const QKeyEvent& event) {
    // With Ctrl the toolkit moves the ring alone, away from what the next key acts on.
    const bool extends = event.modifiers().testFlag(Qt::ShiftModifier);
    QKeyEvent plain(event.type(), event.key(), extends ? Qt::ShiftModifier : Qt::NoModifier);
    QTableView::keyPressEvent(&plain);
    if (!extends && currentIndex().isValid() && !isSelectedAlone(currentIndex().row())) {
        selectCurrentRow();
    }
    bringTargetIntoSight();
}

QModelIndex LedgerTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (goal_.isValid()) {
        return goal_;
    }
    if (model() == nullptr || (action != MoveHome && action != MoveEnd)) {
        return QTableView::moveCursor(action, modifiers);
    }
    // Whole rows are selected, so the ends of a row are no places to go to.
    const int column = std::max(currentIndex().column(), 0);
    const int step = action == MoveHome ? 1 : -1;
    int row = action == MoveHome ? 0 : model()->rowCount() - 1;
    while (row >= 0 && row < model()->rowCount() &&
           !model()->index(row, column).flags().testFlag(Qt::ItemIsSelectable)) {
        row += step;
    }
    return model()->index(row, column);
}

void LedgerTable::setDivider(std::optional<int> row) {
    if (row != divider_) {
        divider_ = row;
        viewport()->update();
    }
}

void LedgerTable::paintDivider(QPainter& painter, int right) const {
    if (divider_ && *divider_ < model()->rowCount()) {
        constexpr int thickness = 2;
        QColor line = Theme::color(ThemeColor::secondaryText);
        line.setAlphaF(0.5F);
        painter.fillRect(0, rowViewportPosition(*divider_) - thickness, right, thickness, line);
    }
}

} // namespace oakfen

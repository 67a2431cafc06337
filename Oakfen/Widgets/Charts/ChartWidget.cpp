#include "Oakfen/Widgets/Charts/ChartWidget.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

#include "Oakfen/Widgets/Charts/ChartAccessible.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

ChartWidget::ChartWidget(QWidget* parent) : QWidget(parent) {
    ChartAccessible::install();
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

ChartWidget::~ChartWidget() = default;

std::optional<ChartPoint> ChartWidget::shownPoint() const {
    if (hovered_) {
        return hovered_;
    }
    return showsKeyboard() && table_.contains(keyboard_) ? std::optional(keyboard_) : std::nullopt;
}

void ChartWidget::activate(const ChartPoint& point) {
    if (table_.leadsOn && table_.contains(point)) {
        activated(point);
    }
}

void ChartWidget::setTable(ChartTable table) {
    const bool hasOtherShape = table.rows != table_.rows || table.columns != table_.columns;
    table_ = std::move(table);
    setAccessibleName(qt(table_.title));
    setAccessibleDescription(qt(table_.summary));
    setFocusPolicy(table_.cells.empty() ? Qt::NoFocus : Qt::StrongFocus);
    if (hovered_ && !table_.contains(*hovered_)) {
        hovered_.reset();
    }
    keyboard_.place = std::min(keyboard_.place, std::max<std::size_t>(table_.rows.size(), 1) - 1);
    keyboard_.series =
        std::min(keyboard_.series, std::max<std::size_t>(table_.columns.size(), 1) - 1);
    if (hasOtherShape) {
        QAccessibleTableModelChangeEvent changed(this,
                                                 QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&changed);
    }
    layOutAgain();
    follow();
}

void ChartWidget::follow() {
    if (table_.leadsOn && hovered_) {
        setCursor(Qt::PointingHandCursor);
    } else {
        unsetCursor();
    }
    shownPointChanged();
    update();
}

void ChartWidget::setHovered(std::optional<ChartPoint> point) {
    if (point != hovered_) {
        hovered_ = point;
        follow();
    }
}

void ChartWidget::setShowsKeyboard(bool shows) {
    showsKeyboard_ = shows;
    follow();
}

void ChartWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        layOutAgain();
        follow();
    }
}

void ChartWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layOutAgain();
    follow();
}

void ChartWidget::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    hovered_.reset();
    follow();
}

void ChartWidget::mouseMoveEvent(QMouseEvent* event) {
    setHovered(pointAt(event->position()));
}

void ChartWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    pressed_ = pointAt(event->position());
    if (pressed_) {
        keyboard_ = *pressed_;
    }
}

void ChartWidget::mouseReleaseEvent(QMouseEvent* event) {
    const std::optional<ChartPoint> pressed = std::exchange(pressed_, std::nullopt);
    if (event->button() == Qt::LeftButton && pressed && pressed == pointAt(event->position())) {
        activate(*pressed);
    }
}

void ChartWidget::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    setHovered(std::nullopt);
}

std::optional<ChartMove> ChartWidget::moveOf(int key) const {
    switch (key) {
    case Qt::Key_Right:
        return ChartMove::nextPlace;
    case Qt::Key_Left:
        return ChartMove::previousPlace;
    case Qt::Key_Home:
        return ChartMove::firstPlace;
    case Qt::Key_End:
        return ChartMove::lastPlace;
    default:
        break;
    }
    // Where nothing lies above or below, these keys scroll the page.
    const bool goesAcross = placesGoDown_ || table_.columns.size() > 1;
    if (key == Qt::Key_Down && goesAcross) {
        return placesGoDown_ ? ChartMove::nextPlace : ChartMove::nextSeries;
    }
    if (key == Qt::Key_Up && goesAcross) {
        return placesGoDown_ ? ChartMove::previousPlace : ChartMove::previousSeries;
    }
    return std::nullopt;
}

void ChartWidget::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const auto move = isPlain ? moveOf(event->key()) : std::nullopt;
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                          event->key() == Qt::Key_Space;
    if (move) {
        step(*move);
    } else if (isPlain && isReturn && table_.leadsOn) {
        activate(keyboard_);
    } else if (isPlain && event->key() == Qt::Key_Escape && shownPoint()) {
        // What is shown can be put away without leaving; the next arrow key brings it back.
        hovered_.reset();
        setShowsKeyboard(false);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ChartWidget::step(ChartMove move) {
    // The first key shows where one is.
    if (showsKeyboard_) {
        keyboard_ = moved(keyboard_, move, table_);
    }
    hovered_.reset();
    setShowsKeyboard(true);
    tellScreenReader();
}

void ChartWidget::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    switch (event->reason()) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        setShowsKeyboard(true);
        break;
    case Qt::MouseFocusReason:
        setShowsKeyboard(false);
        break;
    default:
        // Back from another window or a menu things are as they were.
        follow();
    }
    tellScreenReader();
}

void ChartWidget::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    follow();
}

void ChartWidget::tellScreenReader() {
    if (!QAccessible::isActive() || !table_.contains(keyboard_)) {
        return;
    }
    if (QAccessibleInterface* all = QAccessible::queryAccessibleInterface(this)) {
        if (QAccessibleInterface* value = all->focusChild()) {
            QAccessibleEvent heard(value, QAccessible::Focus);
            QAccessible::updateAccessibility(&heard);
        }
    }
}

} // namespace oakfen

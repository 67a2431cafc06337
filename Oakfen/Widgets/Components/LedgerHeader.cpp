#include "Oakfen/Widgets/Components/LedgerHeader.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

LedgerHeader::LedgerHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

void LedgerHeader::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->pos();
    wasClickable_ = sectionsClickable();
    QHeaderView::mousePressEvent(event);
}

void LedgerHeader::mouseMoveEvent(QMouseEvent* event) {
    const bool isPressed = (event->buttons() & Qt::LeftButton) != 0;
    if (isPressed &&
        (event->pos() - pressed_).manhattanLength() >= QApplication::startDragDistance()) {
        // Whoever misses an edge by a pixel wants to move it, not to sort.
        setSectionsClickable(false);
    }
    QHeaderView::mouseMoveEvent(event);
}

void LedgerHeader::mouseReleaseEvent(QMouseEvent* event) {
    QHeaderView::mouseReleaseEvent(event);
    if (wasClickable_ && !sectionsClickable()) {
        setSectionsClickable(true);
        viewport()->update();
    }
}

void LedgerHeader::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        moveTo(current_ - 1);
        break;
    case Qt::Key_Right:
        moveTo(current_ + 1);
        break;
    case Qt::Key_Home:
        moveTo(0);
        break;
    case Qt::Key_End:
        moveTo(count() - 1);
        break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (sectionsClickable()) {
            Q_EMIT sectionClicked(current_);
        }
        break;
    default:
        // The view's own keys are for cells.
        event->ignore();
    }
}

void LedgerHeader::focusInEvent(QFocusEvent* event) {
    QHeaderView::focusInEvent(event);
    moveTo(isSortIndicatorShown() ? sortIndicatorSection() : current_);
}

void LedgerHeader::focusOutEvent(QFocusEvent* event) {
    QHeaderView::focusOutEvent(event);
    viewport()->update();
}

void LedgerHeader::moveTo(int section) {
    current_ = std::clamp(section, 0, std::max(count() - 1, 0));
    viewport()->update();
    setAccessibleDescription(nameOf(current_));
    QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
}

QString LedgerHeader::nameOf(int section) const {
    return model() == nullptr
               ? QString()
               : model()->headerData(section, orientation(), Qt::AccessibleTextRole).toString();
}

void LedgerHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    painter->save();
    QHeaderView::paintSection(painter, rect, section);
    painter->restore();
    if (hasFocus() && section == current_) {
        painter->setPen(Theme::color(ThemeColor::accent));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(rect.adjusted(0, 0, -1, -1));
    }
}

void LedgerHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
    QHeaderView::initStyleOptionForIndex(option, section);
    using Option = QStyleOptionHeader;
    if (option->sortIndicator == Option::SortDown) {
        option->sortIndicator = Option::SortUp;
    } else if (option->sortIndicator == Option::SortUp) {
        option->sortIndicator = Option::SortDown;
    }
    option->text = shownTitle(option->text, section);
}

QString LedgerHeader::shownTitle(const QString& title, int section) const {
    const int room = sectionSize(section) - (2 * LedgerDelegate::margin);
    const QString shown = fontMetrics().elidedText(title, Qt::ElideRight, room);
    // A letter or two would be no help.
    constexpr qsizetype leastLegible = 3;
    return shown == title || shown.size() > leastLegible ? shown : QString();
}

QString LedgerHeader::cutTitleAt(const QPoint& place) const {
    const int section = logicalIndexAt(place);
    return section >= 0 && sectionSize(section) < sectionSizeFromContents(section).width()
               ? nameOf(section)
               : QString();
}

bool LedgerHeader::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (const QString title = cutTitleAt(help->pos()); !title.isEmpty()) {
            QToolTip::showText(help->globalPos(), plainToolTip(title), this);
            return true;
        }
    }
    return QHeaderView::viewportEvent(event);
}

} // namespace oakfen

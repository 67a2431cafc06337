#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Components/PickerList.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

// How the list of a picker opens, is used and closes.
namespace oakfen {

namespace {

/// More lines than these scroll.
constexpr int mostLines = 12;

bool isWithin(const QObject& target, const QWidget* widget) {
    const auto* targeted = qobject_cast<const QWidget*>(&target);
    return targeted != nullptr && widget != nullptr &&
           (targeted == widget || widget->isAncestorOf(targeted));
}

} // namespace

PickerList* PickerBox::list() const {
    return list_;
}

void PickerBox::showPopup() {
    if (list_ == nullptr) {
        showMatches();
    }
}

void PickerBox::showMatches() {
    if (!isVisible()) {
        return;
    }
    if (list_ == nullptr) {
        // A part of the window, as the sheets are: it can't be left behind, and the keyboard stays
        // where the person types.
        list_ = new PickerList(accessibleName(), window());
        list_->clickedLine = [this](std::size_t /*line*/) { takeHighlighted(); };
        qApp->installEventFilter(this);
    }
    const bool isFiltered = isTyped();
    const std::string typed = isFiltered ? utf8(currentText()) : std::string();
    list_->setLines(pickerLines(rows_, typed, isFiltered ? offer() : CategoryOffer{}));
    placeList();
    list_->show();
    list_->raise();
    if (isFiltered) {
        list_->goToRow(typedRow());
    } else if (currentIndex() >= 0) {
        list_->goToRow(static_cast<std::size_t>(currentIndex()));
    }
}

void PickerBox::placeList() {
    const QRect room =
        window()->rect().adjusted(Theme::grid, Theme::grid, -Theme::grid, -Theme::grid);
    const QRect field(mapTo(window(), QPoint()), size());
    const int width = std::min(std::max(field.width(), list_->neededWidth()), room.width());
    const int wanted = list_->heightOf(mostLines);
    const int beneath = room.bottom() - field.bottom();
    const int above = field.top() - room.top();
    const bool opensDown = wanted <= beneath || beneath >= above;
    const int height = std::min(wanted, opensDown ? beneath : above);
    const int left =
        std::clamp(field.left(), room.left(), std::max(room.left(), room.right() + 1 - width));
    list_->setGeometry(left, opensDown ? field.bottom() + 1 : field.top() - height, width, height);
}

void PickerBox::hidePopup() {
    if (list_ == nullptr) {
        return;
    }
    qApp->removeEventFilter(this);
    list_->hide();
    // Later: its own click may be what ends it.
    list_->deleteLater();
    list_ = nullptr;
}

void PickerBox::openByClick() {
    setFocus(Qt::MouseFocusReason);
    selectText();
    showPopup();
}

void PickerBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QComboBox::mousePressEvent(event);
    } else if (list_ != nullptr) {
        hidePopup();
    } else {
        openByClick();
    }
}

bool PickerBox::answerPress(const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        if (list_ != nullptr || static_cast<const QMouseEvent&>(event).button() != Qt::LeftButton) {
            return false;
        }
        isPressed_ = true;
        openByClick();
        return true;
    case QEvent::MouseMove:
        // The selection is to stay.
        return isPressed_;
    case QEvent::MouseButtonRelease:
        return std::exchange(isPressed_, false);
    default:
        return false;
    }
}

bool PickerBox::endsList(const QObject& target, const QEvent& event) const {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        return target.isWidgetType() && !isWithin(target, list_) && !isWithin(target, this);
    case QEvent::Resize:
        return &target == window();
    default:
        return false;
    }
}

bool PickerBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lineEdit() && answerPress(*event)) {
        return true;
    }
    if (list_ != nullptr && endsList(*watched, *event)) {
        hidePopup();
    }
    return QComboBox::eventFilter(watched, event);
}

void PickerBox::keyPressEvent(QKeyEvent* event) {
    const bool wasOpen = list_ != nullptr;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        answerReturn(*event);
        return;
    case Qt::Key_Escape:
        if (wasOpen) {
            hidePopup();
            showChoice();
            selectText();
        } else {
            event->ignore();
        }
        return;
    case Qt::Key_Down:
    case Qt::Key_Up:
        if (!wasOpen) {
            showPopup();
            return;
        }
        [[fallthrough]];
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
        if (!wasOpen || !list_->stepByKey(event->key())) {
            event->ignore();
        }
        return;
    default:
        QComboBox::keyPressEvent(event);
    }
}

void PickerBox::answerReturn(QKeyEvent& event) {
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool isTaken = takeHighlighted();
    hidePopup();
    takeTypedText();
    // Otherwise it is for the sheet. The toolkit doesn't get it: it would take a header too.
    event.setAccepted(isTaken && isPlain);
}

bool PickerBox::focusNextPrevChild(bool next) {
    takeHighlighted();
    return QComboBox::focusNextPrevChild(next);
}

} // namespace oakfen

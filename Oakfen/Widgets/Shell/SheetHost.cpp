#include "Oakfen/Widgets/Shell/SheetHost.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <chrono>

#include "Oakfen/Widgets/Components/CrossFade.h"
#include "Oakfen/Widgets/Components/SheetScaffold.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr std::chrono::milliseconds fadeDuration(150);
/// What a sheet leaves free of the window, on each side.
constexpr int leastMargin = 22;

constexpr int shadowDepth = 10;
constexpr int shadowBlur = 36;
/// Frames of growing size are laid over each other; so far apart nobody can tell.
constexpr int shadowStep = 2;

void drawShadow(QPainter& painter, const QRectF& of) {
    const QColor deepest = Theme::color(ThemeColor::shadow);
    painter.setPen(Qt::NoPen);
    for (int spread = shadowBlur; spread > 0; spread -= shadowStep) {
        // All together fall off as the square of the distance.
        const auto nearness = 1 - (static_cast<float>(spread) / shadowBlur);
        QColor layer = deepest;
        layer.setAlphaF(deepest.alphaF() * 2 * nearness * shadowStep / shadowBlur);
        painter.setBrush(layer);
        const QRectF frame =
            of.adjusted(-spread, -spread, spread, spread).translated(0, shadowDepth);
        painter.drawRoundedRect(frame, Theme::sheetRadius + spread, Theme::sheetRadius + spread);
    }
}

void drawSurface(QPainter& painter, const QRectF& place) {
    painter.setPen(QPen(Theme::color(ThemeColor::border), 1));
    painter.setBrush(Theme::color(ThemeColor::sheet));
    painter.drawRoundedRect(place.adjusted(-0.5, -0.5, 0.5, 0.5), Theme::sheetRadius,
                            Theme::sheetRadius);
}

} // namespace

SheetHost::SheetHost(QWidget& window, QWidget& beneath) : QWidget(&window), beneath_(beneath) {
    setAttribute(Qt::WA_NoMousePropagation);
    hide();
    // It keeps its place in the layout while it is hidden.
    QSizePolicy policy = beneath.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    beneath.setSizePolicy(policy);
    window.installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*before*/, QWidget* now) { keepFocus(now); });
}

void SheetHost::open(SheetScaffold& sheet) {
    fade();
    focusBeneath_ = window()->focusWidget();
    focusInSheet_ = sheet.focusWidget();
    chosenSize_.reset();
    if (sheet.testAttribute(Qt::WA_Resized)) {
        chosenSize_ = sheet.size();
    }
    isPlaced_ = false;
    sheet_ = &sheet;
    sheet.setParent(this, Qt::Widget);
    // Who gets the keyboard is decided here.
    sheet.setAttribute(Qt::WA_ShowWithoutActivating);
    sheet.installEventFilter(this);
    connect(&sheet, &SheetScaffold::closing, this, &SheetHost::fade);
    sheet.show();
    showState();
}

void SheetHost::closeSheet() {
    if (sheet_ == nullptr) {
        return;
    }
    if (sheet_->isVisible()) {
        fade();
    }
    sheet_->removeEventFilter(this);
    sheet_->disconnect(this);
    sheet_->hide();
    sheet_ = nullptr;
    showState();
}

void SheetHost::setObscured(bool isObscured) {
    isObscured_ = isObscured;
    showState();
}

void SheetHost::refreshLater() {
    if (isHidden() || isStale_) {
        return;
    }
    // One change is told of in several ways, and the screens are still taking it up.
    isStale_ = true;
    QMetaObject::invokeMethod(this, &SheetHost::refresh, Qt::QueuedConnection);
}

void SheetHost::refresh() {
    isStale_ = false;
    if (!isHidden()) {
        picture_ = beneath_.grab();
        update();
    }
}

void SheetHost::showState() {
    const bool isWanted = sheet_ != nullptr && !isObscured_;
    if (isWanted && isHidden()) {
        comeUp();
    } else if (!isWanted && !isHidden()) {
        goAway();
    }
}

void SheetHost::comeUp() {
    // A menu of what lies beneath is a window of its own too.
    closeLists();
    picture_ = beneath_.grab();
    show();
    fillWindow();
    focusSheet();
    beneath_.hide();
}

void SheetHost::goAway() {
    if (sheet_ != nullptr) {
        focusInSheet_ = sheet_->focusWidget();
    }
    closeLists();
    beneath_.show();
    if (!isObscured_) {
        focusBeneath();
    }
    hide();
    picture_ = {};
}

void SheetHost::closeLists() {
    // Calendars, menus and lists of choices are windows of their own and would stay behind.
    QWidget* popup = QApplication::activePopupWidget();
    while (popup != nullptr && popup->close()) {
        popup = QApplication::activePopupWidget();
    }
}

void SheetHost::fillWindow() {
    setGeometry(parentWidget()->rect());
    isPlaced_ = false;
    fitSheet();
}

void SheetHost::fitSheet() {
    if (sheet_ != nullptr) {
        const QSize room = size() - QSize(2 * leastMargin, 2 * leastMargin);
        placeSheet(wantedSize().boundedTo(room).expandedTo(sheet_->minimumSize()));
    }
}

QSize SheetHost::wantedSize() const {
    if (chosenSize_) {
        return *chosenSize_;
    }
    // One that has been seen at some width keeps it.
    const int width = std::max(
        {sheet_->sizeHint().width(), sheet_->minimumWidth(), isPlaced_ ? sheet_->width() : 0});
    const QLayout* layout = sheet_->layout();
    const bool wraps = layout != nullptr && layout->hasHeightForWidth();
    return {width, wraps ? layout->totalHeightForWidth(width) : sheet_->sizeHint().height()};
}

void SheetHost::placeSheet(QSize size) {
    QRect place(QPoint(), size);
    place.moveCenter(rect().center());
    if (isPlaced_) {
        // What comes and goes in it doesn't move what stands above.
        place.moveTop(
            std::max(leastMargin, std::min(sheet_->y(), height() - leastMargin - size.height())));
    }
    isPlaced_ = true;
    if (sheet_->geometry() != place) {
        sheet_->setGeometry(place);
        update();
    }
}

void SheetHost::focusSheet() {
    if (sheet_->isAncestorOf(focusInSheet_)) {
        focusInSheet_->setFocus(Qt::OtherFocusReason);
    } else {
        sheet_->setFocus(Qt::OtherFocusReason);
        focusNextChild();
    }
}

void SheetHost::focusBeneath() {
    if (focusBeneath_ != nullptr && focusBeneath_->isVisible()) {
        focusBeneath_->setFocus(Qt::OtherFocusReason);
    } else {
        focusNextChild();
    }
}

void SheetHost::keepFocus(QWidget* focused) {
    if (isHidden() || sheet_ == nullptr || !beneath_.isAncestorOf(focused)) {
        return;
    }
    // It was meant for the time after the sheet.
    focusBeneath_ = focused;
    returnFocus();
}

void SheetHost::returnFocus() {
    focusInSheet_ = sheet_->focusWidget();
    focusSheet();
}

void SheetHost::mousePressEvent(QMouseEvent* /*event*/) {
    if (sheet_ != nullptr && !sheet_->isAncestorOf(QApplication::focusWidget())) {
        returnFocus();
    }
}

void SheetHost::fade() {
    if (window()->isVisible() && !isObscured_ && Theme::animates()) {
        new CrossFade(*window(), fadeDuration);
    }
}

bool SheetHost::eventFilter(QObject* watched, QEvent* event) {
    if (watched == sheet_.data()) {
        if (event->type() == QEvent::LayoutRequest) {
            fitSheet();
        }
    } else if (watched == parentWidget()) {
        if (event->type() == QEvent::Resize) {
            fillWindow();
            refresh();
        } else if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
            refreshLater();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SheetHost::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect place = sheet_ != nullptr ? sheet_->geometry() : QRect();
    const int corner = Theme::sheetRadius;
    if (place.adjusted(corner, corner, -corner, -corner).contains(event->rect())) {
        // A caret that blinks needs none of what lies around.
        painter.fillRect(event->rect(), Theme::color(ThemeColor::sheet));
        return;
    }
    painter.drawPixmap(beneath_.mapTo(parentWidget(), QPoint()), picture_);
    painter.fillRect(rect(), Theme::color(ThemeColor::scrim));
    painter.setRenderHint(QPainter::Antialiasing);
    drawShadow(painter, place);
    drawSurface(painter, place);
}

} // namespace oakfen

#include "Oakfen/Widgets/Shell/PanelHost.h"

#include <QEvent>
#include <QPainter>
#include <QResizeEvent>
#include <algorithm>
#include <chrono>
#include <utility>

#include "Oakfen/Widgets/Components/CrossFade.h"
#include "Oakfen/Widgets/Components/EntriesPanel.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr std::chrono::milliseconds fadeDuration(150);
/// What a panel leaves of the screen to be seen, and clicked to return to it.
constexpr int leastBeside = 30 * Theme::grid;

} // namespace

PanelHost::PanelHost(QWidget& beneath, QWidget* parent) : QWidget(parent), beneath_(beneath) {
    setAttribute(Qt::WA_NoMousePropagation);
    hide();
    // It keeps its place in the layout while it is hidden.
    QSizePolicy policy = beneath.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    beneath.setSizePolicy(policy);
}

void PanelHost::open(EntriesPanel& panel) {
    closePanel();
    panel_ = &panel;
    panel.setParent(this);
    connect(&panel, &EntriesPanel::closed, this, &PanelHost::closePanel);
    focusBeneath_ = window()->focusWidget();
    if (!isObscured_) {
        comeUp();
    }
}

void PanelHost::closePanel() {
    if (panel_ == nullptr) {
        return;
    }
    EntriesPanel* panel = std::exchange(panel_, nullptr);
    panel->disconnect(this);
    if (!isObscured_) {
        goAway();
    }
    panel->hide();
    // What closes it may still be running inside it.
    panel->deleteLater();
}

void PanelHost::setObscured(bool isObscured) {
    if (isObscured == std::exchange(isObscured_, isObscured) || panel_ == nullptr) {
        return;
    }
    isObscured ? goAway() : comeUp();
}

void PanelHost::comeUp() {
    if (window()->isVisible() && Theme::animates()) {
        new CrossFade(*window(), fadeDuration);
    }
    picture_ = beneath_.grab();
    show();
    placePanel();
    panel_->show();
    panel_->setFocus(Qt::OtherFocusReason);
    beneath_.hide();
}

void PanelHost::goAway() {
    if (window()->isVisible() && !isObscured_ && Theme::animates()) {
        new CrossFade(*window(), fadeDuration);
    }
    beneath_.show();
    if (focusBeneath_ != nullptr && focusBeneath_->isVisible() && !isObscured_) {
        focusBeneath_->setFocus(Qt::OtherFocusReason);
    }
    hide();
    picture_ = {};
}

void PanelHost::refreshLater() {
    if (panel_ == nullptr || isObscured_ || std::exchange(isStale_, true)) {
        return;
    }
    // One change is told of in several ways, and the screens are still taking it up.
    QMetaObject::invokeMethod(this, &PanelHost::refresh, Qt::QueuedConnection);
}

void PanelHost::refresh() {
    isStale_ = false;
    if (panel_ != nullptr && !isObscured_) {
        picture_ = beneath_.grab();
        update();
    }
}

void PanelHost::placePanel() {
    if (panel_ != nullptr) {
        const int width = std::min(panel_->greatestWidth(), this->width() - leastBeside);
        panel_->setGeometry(this->width() - width, 0, width, height());
    }
}

void PanelHost::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.drawPixmap(beneath_.pos(), picture_);
    painter.fillRect(rect(), Theme::color(ThemeColor::scrim));
}

void PanelHost::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placePanel();
    refreshLater();
}

void PanelHost::mousePressEvent(QMouseEvent* /*event*/) {
    closePanel();
}

void PanelHost::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        refreshLater();
    }
}

} // namespace oakfen

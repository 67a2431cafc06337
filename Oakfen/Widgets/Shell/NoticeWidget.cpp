#include "Oakfen/Widgets/Shell/NoticeWidget.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QToolButton>
#include <chrono>

#include "Oakfen/Widgets/Components/Panes.h"
#include "Oakfen/Widgets/Components/WrappedLabel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int greatestTextWidth = 420;
/// Time to read it and to reach its button.
constexpr std::chrono::seconds shownFor(8);

/// By ear it is what screen readers tell of when it comes.
QAccessibleInterface* accessibleNotice(const QString& /*className*/, QObject* object) {
    auto* notice = qobject_cast<NoticeWidget*>(object);
    return notice != nullptr ? new QAccessibleWidget(notice, QAccessible::Notification) : nullptr;
}

} // namespace

NoticeWidget::NoticeWidget(AppState& state, QWidget* parent)
    : QFrame(parent), state_(state), text_(new QLabel(this)), action_(new QPushButton(this)),
      close_(new QToolButton(this)), timer_(new QTimer(this)) {
    setObjectName(QStringLiteral("Notice"));
    QAccessible::installFactory(accessibleNotice);
    makePane(*this);
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    close_->setIcon(symbolIcon("xmark", ThemeColor::secondaryText));
    close_->setAutoRaise(true);
    close_->setToolTip(QStringLiteral("Dismiss"));
    close_->setAccessibleName(QStringLiteral("Dismiss"));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Theme::grid * 2, Theme::grid, Theme::grid, Theme::grid);
    row->setSpacing(Theme::grid);
    row->addWidget(text_);
    row->addWidget(action_);
    row->addWidget(close_);

    timer_->setSingleShot(true);
    timer_->setInterval(shownFor);
    connect(timer_, &QTimer::timeout, this,
            [this] { isInUse() ? goInAWhile() : state_.dismissNotice(); });
    connect(close_, &QToolButton::clicked, this, [this] { state_.dismissNotice(); });
    connect(action_, &QPushButton::clicked, this, [this] {
        // Taken out first: the action may show the next notice.
        const std::optional<Notice> notice = state_.notice();
        state_.dismissNotice();
        if (notice && notice->action) {
            notice->action();
        }
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* earlier, QWidget* now) {
        if (isAncestorOf(now) && !isAncestorOf(earlier)) {
            before_ = earlier;
        }
    });
    noticeChanged_ = state_.noticeChanged.observe([this] { refresh(); });
    refresh();
}

void NoticeWidget::setScreenHidden(bool isHidden) {
    if (isHidden != isScreenHidden_) {
        isScreenHidden_ = isHidden;
        refresh();
    }
}

void NoticeWidget::refresh() {
    const std::optional<Notice>& notice = state_.notice();
    timer_->stop();
    if (notice && (notice->stays || !isScreenHidden_)) {
        tell(*notice);
    } else {
        leave();
    }
}

void NoticeWidget::tell(const Notice& notice) {
    const QString text = qt(notice.text);
    text_->setText(text);
    // A label that wraps would otherwise be as narrow as it can be.
    const int wanted = text_->fontMetrics().horizontalAdvance(text) + Theme::grid;
    text_->setMinimumWidth(std::min(wanted, greatestTextWidth));
    setAccessibleName(text);
    action_->setText(qt(notice.actionTitle));
    action_->setVisible(!notice.actionTitle.empty());
    // What stays goes by its action only.
    close_->setVisible(!notice.stays || notice.actionTitle.empty());
    if (!notice.stays) {
        goInAWhile();
    }
    if (!isHidden()) {
        // In the place of another one, it comes as much as the first did.
        QAccessibleEvent came(this, QAccessible::ObjectShow);
        QAccessible::updateAccessibility(&came);
    }
    show();
}

void NoticeWidget::leave() {
    const bool hasKeyboard = isAncestorOf(QApplication::focusWidget());
    hide();
    if (hasKeyboard && before_ != nullptr) {
        before_->setFocus(Qt::OtherFocusReason);
    }
}

void NoticeWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !close_->isHidden()) {
        state_.dismissNotice();
    } else {
        QFrame::keyPressEvent(event);
    }
}

void NoticeWidget::goInAWhile() {
    timer_->start();
}

bool NoticeWidget::isInUse() const {
    return underMouse() || isAncestorOf(QApplication::focusWidget());
}

void NoticeWidget::enterEvent(QEnterEvent* event) {
    QFrame::enterEvent(event);
    timer_->stop();
}

void NoticeWidget::leaveEvent(QEvent* event) {
    QFrame::leaveEvent(event);
    if (isVisible() && state_.notice() && !state_.notice()->stays) {
        goInAWhile();
    }
}

} // namespace oakfen

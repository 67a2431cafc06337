#include "Oakfen/Widgets/Shell/NoticeWidget.h"

#include <QAccessible>
#include <QApplication>
#include <QTimer>
#include <QToolButton>
#include <chrono>

#include "Oakfen/Widgets/Components/WrappedLabel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int greatestTextWidth = 420;
/// Time to read it and to reach its button.
constexpr std::chrono::seconds shownFor(8);

} // namespace

NoticeWidget::NoticeWidget(AppState& state, QWidget* parent)
    : QFrame(parent), state_(state), text_(new QLabel(this)), action_(new QPushButton(this)),
      close_(new QToolButton(this)), timer_(new QTimer(this)) {
    setObjectName(QStringLiteral("Notice"));
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
    noticeChanged_ = state_.noticeChanged.observe([this] { refresh(); });
    refresh();
}

void NoticeWidget::refresh() {
    const std::optional<Notice>& notice = state_.notice();
    timer_->stop();
    setVisible(notice.has_value());
    if (!notice) {
        return;
    }
    const QString text = qt(notice->text);
    text_->setText(text);
    // A label that wraps would otherwise be as narrow as it can be.
    const int wanted = text_->fontMetrics().horizontalAdvance(text) + Theme::grid;
    text_->setMinimumWidth(std::min(wanted, greatestTextWidth));
    setAccessibleName(text);
    action_->setText(qt(notice->actionTitle));
    action_->setVisible(!notice->actionTitle.empty());
    // What stays goes by its action only.
    close_->setVisible(!notice->stays || notice->actionTitle.empty());
    if (!notice->stays) {
        goInAWhile();
    }
    QAccessibleEvent announced(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&announced);
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
    if (state_.notice() && !state_.notice()->stays) {
        goInAWhile();
    }
}

} // namespace oakfen

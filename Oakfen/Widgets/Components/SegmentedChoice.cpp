#include "Oakfen/Widgets/Components/SegmentedChoice.h"

#include <QAccessibleWidget>
#include <QButtonGroup>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>

#include "Oakfen/Widgets/Components/Mnemonics.h"

namespace oakfen {

namespace {

/// Tells those who listen that the words belong together.
QAccessibleInterface* makeGroup(const QString& /*className*/, QObject* object) {
    auto* choice = qobject_cast<SegmentedChoice*>(object);
    return choice != nullptr ? new QAccessibleWidget(choice, QAccessible::Grouping) : nullptr;
}

/// The way through the words that an arrow key goes; 0 for other keys.
int stepOf(const QEvent& event, Qt::LayoutDirection direction) {
    if (event.type() != QEvent::KeyPress) {
        return 0;
    }
    const int rightwards = direction == Qt::LeftToRight ? 1 : -1;
    switch (static_cast<const QKeyEvent&>(event).key()) {
    case Qt::Key_Right:
        return rightwards;
    case Qt::Key_Left:
        return -rightwards;
    case Qt::Key_Down:
        return 1;
    case Qt::Key_Up:
        return -1;
    default:
        return 0;
    }
}

} // namespace

SegmentedChoice::SegmentedChoice(const QString& title, const QStringList& choices, QWidget* parent)
    : QWidget(parent), buttons_(new QButtonGroup(this)) {
    static const bool isKnown = [] {
        QAccessible::installFactory(makeGroup);
        return true;
    }();
    Q_UNUSED(isKnown)
    // For its label, which leads to the chosen word; Tab comes to that by itself.
    setFocusPolicy(Qt::ClickFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (const QString& choice : choices) {
        auto* button = new QPushButton(choice);
        button->setCheckable(true);
        button->setAutoDefault(false);
        // Which makes it a radio button for those who listen.
        button->setAutoExclusive(true);
        button->installEventFilter(this);
        row->addWidget(button);
        buttons_->addButton(button, static_cast<int>(buttons_->buttons().size()));
    }
    row->addStretch(1);
    setTitle(title);
    // Whenever a button becomes the checked one: by a click, or by an arrow key.
    connect(buttons_, &QButtonGroup::idToggled, this, [this](int, bool isChecked) {
        if (isChecked) {
            letTabComeToChosen();
            chosen();
        }
    });
}

void SegmentedChoice::setTitle(const QString& title) {
    setAccessibleName(title);
    for (QAbstractButton* button : buttons_->buttons()) {
        button->setToolTip(title + QStringLiteral(": ") + withoutMnemonic(button->text()));
    }
}

int SegmentedChoice::choice() const {
    return buttons_->checkedId();
}

void SegmentedChoice::choose(int choice) {
    const QSignalBlocker blocker(buttons_);
    buttons_->button(choice)->setChecked(true);
    letTabComeToChosen();
}

void SegmentedChoice::focusInEvent(QFocusEvent* event) {
    if (QAbstractButton* button = buttons_->checkedButton()) {
        button->setFocus(event->reason());
    }
}

bool SegmentedChoice::eventFilter(QObject* watched, QEvent* event) {
    const int places = stepOf(*event, layoutDirection());
    if (places == 0 || static_cast<QKeyEvent*>(event)->modifiers().testFlag(Qt::AltModifier)) {
        return QWidget::eventFilter(watched, event);
    }
    step(places);
    return true;
}

void SegmentedChoice::step(int places) {
    QAbstractButton* next = buttons_->button(choice() + places);
    if (next != nullptr && next->isEnabled()) {
        next->setFocus(places > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        next->setChecked(true);
    }
}

void SegmentedChoice::letTabComeToChosen() {
    for (QAbstractButton* button : buttons_->buttons()) {
        button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

} // namespace oakfen

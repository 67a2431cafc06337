#include "Oakfen/Widgets/Components/SegmentedChoice.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>

namespace oakfen {

SegmentedChoice::SegmentedChoice(const QString& title, const QStringList& choices, QWidget* parent)
    : QWidget(parent), buttons_(new QButtonGroup(this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (const QString& choice : choices) {
        auto* button = new QPushButton(choice);
        button->setCheckable(true);
        button->setAutoDefault(false);
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
        button->setToolTip(title + QStringLiteral(": ") + button->text());
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

void SegmentedChoice::letTabComeToChosen() {
    for (QAbstractButton* button : buttons_->buttons()) {
        button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

} // namespace oakfen

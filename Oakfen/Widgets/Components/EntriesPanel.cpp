#include "Oakfen/Widgets/Components/EntriesPanel.h"

#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>

#include "Oakfen/Widgets/Components/ElidedLabel.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

EntriesPanel::EntriesPanel(const QString& title, int greatestWidth, QWidget* parent)
    : QWidget(parent), greatestWidth_(greatestWidth), close_(new QToolButton),
      head_(new QVBoxLayout) {
    setAccessibleName(title);
    close_->setIcon(symbolIcon("xmark", ThemeColor::secondaryText));
    close_->setAutoRaise(true);
    close_->setFocusPolicy(Qt::StrongFocus);
    close_->setToolTip(tr("Close (Esc)"));
    close_->setAccessibleName(tr("Close"));
    connect(close_, &QToolButton::clicked, this, &EntriesPanel::closed);

    auto* layout = new QVBoxLayout(this);
    // One pixel for the line at the left.
    layout->setContentsMargins(1, 0, 0, 0);
    layout->setSpacing(0);
    head_->setContentsMargins(3 * Theme::grid, 2 * Theme::grid, 2 * Theme::grid, 2 * Theme::grid);
    head_->setSpacing(Theme::grid);
    layout->addLayout(head_);
    auto* titleRow = new QHBoxLayout;
    head_->addLayout(titleRow);
    auto* label = new ElidedLabel(TextStyle::headline, ThemeColor::text);
    label->showText(title);
    titleRow->addWidget(label, 1);
    titleRow->addWidget(close_);
}

void EntriesPanel::setBody(QWidget& list, QWidget& foot) {
    list_ = &list;
    auto* column = static_cast<QVBoxLayout*>(layout());
    column->addWidget(&list, 1);
    column->addWidget(&foot);
}

void EntriesPanel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Theme::color(ThemeColor::surface));
    painter.setPen(Theme::color(ThemeColor::border));
    if (list_ != nullptr) {
        painter.fillRect(0, 0, width(), list_->y(), Theme::color(ThemeColor::window));
        painter.drawLine(0, list_->y() - 1, width(), list_->y() - 1);
    }
    painter.drawLine(0, 0, 0, height());
}

void EntriesPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        Q_EMIT closed();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace oakfen

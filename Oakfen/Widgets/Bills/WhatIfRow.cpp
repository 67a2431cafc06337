#include "Oakfen/Widgets/Bills/WhatIfRow.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>
#include <cmath>

#include "Oakfen/Views/Components/Choices.h"
#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"

namespace oakfen {

namespace {

constexpr int rowHeight = 28;
constexpr int dayWidth = 56;
constexpr int frequencyWidth = 68;
constexpr int removeSize = 22;
/// What most amounts need, so that the days stand under each other.
constexpr int usualAmountWidth = 84;

} // namespace

WhatIfLine::WhatIfLine(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setToolTip(tr("Change the entry"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void WhatIfLine::showContent(const BillsContent::TriedRow& content) {
    content_ = content;
    setAccessibleName(tr("%1, %2, %3, %4")
                          .arg(qt(content.name), qt(content.day), qt(content.frequency),
                               qt(content.amount.text)));
    update();
}

QSize WhatIfLine::sizeHint() const {
    return {200, std::max(rowHeight, QFontMetrics(Theme::font(TextStyle::body)).height() + 8)};
}

void WhatIfLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (underMouse()) {
        painter.fillRect(rect(), Theme::color(ThemeColor::surfaceRaised));
    }
    QColor hairline = Theme::color(ThemeColor::border);
    hairline.setAlphaF(0.6F);
    painter.fillRect(0, 0, width(), 1, hairline);
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(Theme::color(ThemeColor::text));
    const QString amount = qt(content_.amount.text);
    drawFigures(painter, rect(), amount);
    const int amountWidth = static_cast<int>(std::ceil(figureWidth(painter.font(), amount)));
    int right = width() - std::max(amountWidth + Theme::grid, usualAmountWidth);
    painter.setFont(Theme::font(TextStyle::caption));
    painter.setPen(Theme::color(ThemeColor::secondaryText));
    const auto write = [&](const QString& text, int wide) {
        right -= wide;
        painter.drawText(QRect(right, 0, wide, height()), Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, wide));
    };
    write(qt(content_.frequency), frequencyWidth);
    write(qt(content_.day), dayWidth);
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(Theme::color(ThemeColor::text));
    const int room = std::max(0, right - Theme::grid);
    painter.drawText(QRect(0, 0, room, height()), Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(qt(content_.name), Qt::ElideRight, room));
    if (hasFocus()) {
        painter.setPen(Theme::color(ThemeColor::accent));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

WhatIfRow::WhatIfRow(const Clock& clock, const BillsContent::TriedRow& content, QWidget* parent)
    : QWidget(parent), entry_(content.entry), line_(new WhatIfLine), name_(new QLineEdit),
      amount_(new AmountField(tr("Amount"))), day_(new DateField(tr("Day"), clock)),
      frequency_(new QComboBox), fields_(makeFields()), remove_(new QToolButton) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::grid / 2);
    row->addWidget(line_, 1);
    row->addWidget(fields_, 1);
    row->addWidget(remove_, 0, Qt::AlignTop);
    fields_->hide();
    remove_->setIcon(symbolIcon("xmark", ThemeColor::secondaryText));
    remove_->setIconSize({10, 10});
    remove_->setFixedSize(removeSize, rowHeight);
    remove_->setFocusPolicy(Qt::StrongFocus);
    remove_->setToolTip(tr("Take the entry away"));
    connect(remove_, &QToolButton::clicked, this, [this] { removed(); });
    connect(line_, &QAbstractButton::clicked, this, [this] { toggled(true); });
    showContent(content);
    setValues();
}

QWidget* WhatIfRow::makeFields() {
    name_->setAccessibleName(tr("Name"));
    name_->setPlaceholderText(tr("What it is"));
    amount_->setAccessibleName(tr("Amount"));
    amount_->setPurpose(tr("Negative for money that goes out"));
    day_->setAccessibleName(tr("Day"));
    frequency_->setAccessibleName(tr("Repeats"));
    frequency_->setToolTip(tr("How often it comes"));
    for (const ChoiceRow& each : choiceRows<Frequency>()) {
        frequency_->addItem(qt(each.title), each.value);
    }
    frequency_->setMaxVisibleItems(frequency_->count());
    auto* fields = new QWidget;
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, Theme::grid / 2, 0, Theme::grid / 2);
    grid->setSpacing(Theme::grid / 2);
    grid->addWidget(name_, 0, 0);
    grid->addWidget(amount_, 0, 1);
    grid->addWidget(day_, 1, 0);
    grid->addWidget(frequency_, 1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    connect(name_, &QLineEdit::textChanged, this, [this] { takeFields(); });
    connect(frequency_, &QComboBox::activated, this, [this] { takeFields(); });
    amount_->edited = [this] { takeFields(); };
    day_->edited = [this] { takeFields(); };
    return fields;
}

void WhatIfRow::setValues() {
    const QSignalBlocker blocker(name_);
    name_->setText(qt(entry_.name));
    amount_->setValue(entry_.amount);
    day_->setValue(entry_.date);
    frequency_->setCurrentIndex(frequency_->findData(static_cast<int>(entry_.frequency)));
}

void WhatIfRow::takeFields() {
    entry_.name = utf8(name_->text());
    entry_.amount = amount_->value();
    entry_.date = day_->value();
    entry_.frequency = static_cast<Frequency>(frequency_->currentData().toInt());
    edited(entry_);
}

void WhatIfRow::showContent(const BillsContent::TriedRow& content) {
    line_->showContent(content);
    remove_->setAccessibleName(tr("Remove %1").arg(qt(content.name)));
    if (entry_ != content.entry) {
        entry_ = content.entry;
        setValues();
    }
}

void WhatIfRow::setOpen(bool isOpen) {
    if (isOpen == fields_->isVisibleTo(this)) {
        return;
    }
    const bool hadKeyboard = isAncestorOf(window()->focusWidget());
    fields_->setVisible(isOpen);
    line_->setVisible(!isOpen);
    if (isOpen) {
        name_->setFocus(Qt::OtherFocusReason);
        name_->selectAll();
    } else if (hadKeyboard) {
        line_->setFocus(Qt::OtherFocusReason);
    }
}

void WhatIfRow::putBefore(QWidget& next) {
    QWidget* last = next.previousInFocusChain();
    for (QWidget* each : {static_cast<QWidget*>(line_), static_cast<QWidget*>(name_),
                          static_cast<QWidget*>(amount_), static_cast<QWidget*>(day_),
                          static_cast<QWidget*>(frequency_), static_cast<QWidget*>(remove_)}) {
        setTabOrder(last, each);
        last = each;
    }
    setTabOrder(last, &next);
}

void WhatIfRow::keyPressEvent(QKeyEvent* event) {
    const bool isDone = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                        event->key() == Qt::Key_Escape;
    if (isDone && isOpen()) {
        toggled(false);
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace oakfen

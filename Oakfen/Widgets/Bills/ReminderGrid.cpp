#include "Oakfen/Widgets/Bills/ReminderGrid.h"

#include <QPushButton>
#include <QResizeEvent>
#include <algorithm>
#include <cmath>
#include <map>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/Mnemonics.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr int headHeight = 32;
constexpr int columnGap = 3 * Theme::grid;

int textWidth(const QString& text) {
    return QFontMetrics(Theme::font(TextStyle::body)).horizontalAdvance(text);
}

int lineHeight(int least) {
    return std::max(least, QFontMetrics(Theme::font(TextStyle::body)).height() + Theme::grid);
}

QString editTitle() {
    return ReminderRow::tr("Edit");
}

} // namespace

ReminderRow::ReminderRow(const ReminderColumns& columns, QWidget* parent)
    : ListRow(parent), columns_(columns), edit_(new QPushButton(editTitle(), this)) {
    Theme::setTrait(*edit_, "link");
    edit_->setAutoDefault(false);
    edit_->setToolTip(tr("Change or delete the reminder"));
    leaveWithoutLetter(*edit_);
}

void ReminderRow::showContent(const BillsContent::Reminder& content) {
    if (content == content_) {
        return;
    }
    content_ = content;
    setAccessibleName(tr("%1, %2, %3, next due %4, %5")
                          .arg(qt(content.payee), qt(content.account), qt(content.frequency),
                               qt(content.nextDue), qt(content.amount.text)));
    edit_->setAccessibleName(tr("Edit %1").arg(qt(content.payee)));
    update();
}

void ReminderRow::putAt(const QRect& place) {
    setGeometry(place);
    const QSize wanted = edit_->sizeHint();
    const int high = std::min(wanted.height(), height() - 2);
    edit_->setGeometry(columns_.edit, (height() - high) / 2, wanted.width(), high);
    update();
}

void ReminderRow::paintRow(QPainter& painter) {
    QColor hairline = Theme::color(ThemeColor::border);
    hairline.setAlphaF(0.6F);
    painter.fillRect(padding, 0, width() - (2 * padding), 1, hairline);
    const auto cell = [this](int left, int right) {
        return QRect(left, 0, right - left, height());
    };
    drawLine(painter, cell(columns_.payee, columns_.account - columnGap), qt(content_.payee),
             TextStyle::body, ThemeColor::text);
    drawLine(painter, cell(columns_.account, columns_.frequency - columnGap), qt(content_.account),
             TextStyle::body, ThemeColor::text);
    drawLine(painter, cell(columns_.frequency, columns_.nextDue), qt(content_.frequency),
             TextStyle::body, ThemeColor::secondaryText);
    painter.setPen(Theme::color(ThemeColor::text));
    painter.setFont(Theme::font(TextStyle::body));
    drawFigures(painter, cell(columns_.nextDue, columns_.amountEnd), qt(content_.nextDue),
                Qt::AlignLeft);
    drawMoney(painter, cell(columns_.nextDue, columns_.amountEnd), content_.amount);
}

ReminderGrid::ReminderGrid(BillsView& view, QWidget* parent) : QWidget(parent), view_(view) {
    setAccessibleName(tr("All Reminders"));
}

ReminderRow* ReminderGrid::makeRow(const UUID& id) {
    auto* row = new ReminderRow(columns_, this);
    row->menu = [this, id] { return view_.contextMenu(id, false); };
    connect(row->editButton(), &QPushButton::clicked, this, [this, id] { view_.editReminder(id); });
    return row;
}

void ReminderGrid::showReminders(const std::vector<BillsContent::Reminder>& reminders) {
    std::multimap<UUID, ReminderRow*> earlier;
    for (ReminderRow* row : rows_) {
        earlier.emplace(row->content().id, row);
    }
    rows_.clear();
    for (const BillsContent::Reminder& each : reminders) {
        auto known = earlier.extract(each.id);
        rows_.push_back(known ? known.mapped() : makeRow(each.id));
        rows_.back()->showContent(each);
    }
    for (const auto& [id, row] : earlier) {
        row->hide();
        row->deleteLater();
    }
    place();
}

void ReminderGrid::putInTabOrder(QWidget* after) {
    for (ReminderRow* row : rows_) {
        setTabOrder(after, row->editButton());
        after = row->editButton();
    }
}

void ReminderGrid::placeColumns() {
    int frequency = textWidth(tr("Frequency"));
    int nextDue = textWidth(tr("Next Due"));
    int amount = textWidth(tr("Amount"));
    int edit = textWidth(editTitle());
    const QFont font = Theme::font(TextStyle::body);
    const auto figure = [&font](const std::string& text) {
        return static_cast<int>(std::ceil(figureWidth(font, qt(text))));
    };
    for (const ReminderRow* row : rows_) {
        frequency = std::max(frequency, textWidth(qt(row->content().frequency)));
        nextDue = std::max(nextDue, figure(row->content().nextDue));
        amount = std::max(amount, figure(row->content().amount.text));
        edit = std::max(edit, row->editButton()->sizeHint().width());
    }
    columns_.payee = ListRow::padding;
    columns_.edit = width() - Theme::grid - edit;
    columns_.amountEnd = columns_.edit - (2 * Theme::grid);
    columns_.nextDue = columns_.amountEnd - amount - columnGap - nextDue;
    columns_.frequency = columns_.nextDue - columnGap - frequency;
    const int names = columns_.frequency - columnGap - columns_.payee;
    // Payees are longer than accounts.
    columns_.account = columns_.payee + (std::max(0, names) * 9 / 16);
}

void ReminderGrid::place() {
    placeColumns();
    const int high = lineHeight(Theme::tableRowHeight);
    int top = lineHeight(headHeight);
    for (ReminderRow* row : rows_) {
        row->putAt({0, top, width(), high});
        row->show();
        // To the end of the children, for screen readers.
        row->raise();
        top += high;
    }
    setFixedHeight(top);
    update();
}

void ReminderGrid::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        place();
    }
}

void ReminderGrid::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setFont(Theme::font(TextStyle::body));
    painter.setPen(Theme::color(ThemeColor::secondaryText));
    const auto write = [&](int left, int right, const QString& title, Qt::Alignment side) {
        painter.drawText(QRect(left, 0, right - left, lineHeight(headHeight)),
                         side | Qt::AlignVCenter | Qt::TextSingleLine, title);
    };
    write(columns_.payee, columns_.account, tr("Payee"), Qt::AlignLeft);
    write(columns_.account, columns_.frequency, tr("Account"), Qt::AlignLeft);
    write(columns_.frequency, columns_.nextDue, tr("Frequency"), Qt::AlignLeft);
    write(columns_.nextDue, columns_.amountEnd, tr("Next Due"), Qt::AlignLeft);
    write(columns_.nextDue, columns_.amountEnd, tr("Amount"), Qt::AlignRight);
}

} // namespace oakfen

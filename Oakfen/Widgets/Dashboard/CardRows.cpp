#include "Oakfen/Widgets/Dashboard/CardRows.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>

#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

CardRows::CardRows(const QString& emptyText, QWidget* parent)
    : QWidget(parent), grid_(new QGridLayout(this)), empty_(new QLabel(emptyText, this)) {
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setVerticalSpacing(0);
    grid_->setHorizontalSpacing(6 * Theme::grid);
    empty_->setTextFormat(Qt::PlainText);
    empty_->setWordWrap(true);
    Theme::setText(*empty_, TextStyle::body, ThemeColor::secondaryText);
    place();
}

void CardRows::setCount(std::size_t count, const std::function<QWidget*()>& make) {
    if (count == rows_.size()) {
        return;
    }
    while (rows_.size() > count) {
        // Later: what changed the document may be a button in it.
        rows_.back()->hide();
        rows_.back()->deleteLater();
        grid_->removeWidget(rows_.back());
        rows_.pop_back();
    }
    while (rows_.size() < count) {
        rows_.push_back(make());
    }
    place();
}

void CardRows::setColumnCount(int count) {
    if (count != columnCount_) {
        columnCount_ = count;
        place();
    }
}

std::size_t CardRows::rowsInColumn() const {
    const auto columns = static_cast<std::size_t>(columnCount_);
    return (rows_.size() + columns - 1) / columns;
}

void CardRows::place() {
    empty_->setVisible(rows_.empty());
    grid_->removeWidget(empty_);
    for (QWidget* row : rows_) {
        grid_->removeWidget(row);
    }
    for (int row = 0; row < grid_->rowCount(); ++row) {
        grid_->setRowStretch(row, 0);
    }
    for (int column = 0; column < grid_->columnCount(); ++column) {
        grid_->setColumnStretch(column, column < columnCount_ ? 1 : 0);
    }
    if (rows_.empty()) {
        grid_->addWidget(empty_, 0, 0, 1, columnCount_, Qt::AlignTop);
    }
    for (std::size_t index = 0; index < rows_.size(); ++index) {
        const int column = static_cast<int>(index / rowsInColumn());
        grid_->addWidget(rows_[index], static_cast<int>(index % rowsInColumn()), column);
        rows_[index]->show();
        grid_->setColumnStretch(column, 1);
    }
    grid_->setRowStretch(static_cast<int>(rows_.size()) + 1, 1);
    update();
}

void CardRows::paintEvent(QPaintEvent* /*event*/) {
    if (!hasLines_) {
        return;
    }
    QPainter painter(this);
    QColor line = Theme::color(ThemeColor::border);
    line.setAlphaF(0.6F);
    painter.setPen(line);
    for (std::size_t index = 0; index + 1 < rows_.size(); ++index) {
        if ((index + 1) % rowsInColumn() != 0) {
            const QRect row = rows_[index]->geometry();
            painter.drawLine(row.left(), row.bottom(), row.right(), row.bottom());
        }
    }
}

} // namespace oakfen

#include "Oakfen/Widgets/Dashboard/CardRows.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <algorithm>

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

std::vector<CardRows::Place> CardRows::places() const {
    const auto columns = static_cast<std::size_t>(columnCount_);
    std::vector<Place> places;
    for (std::size_t column = 0; column < columns; ++column) {
        // The first columns have one more where they can't all have as many.
        const std::size_t count =
            (rows_.size() / columns) + (column < rows_.size() % columns ? 1 : 0);
        for (std::size_t row = 0; row < count; ++row) {
            places.push_back({static_cast<int>(row), static_cast<int>(column), row + 1 == count});
        }
    }
    return places;
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
    for (int column = 0; column < std::max(grid_->columnCount(), columnCount_); ++column) {
        grid_->setColumnStretch(column, column < columnCount_ ? 1 : 0);
    }
    if (rows_.empty()) {
        grid_->addWidget(empty_, 0, 0, 1, columnCount_, Qt::AlignTop);
    }
    const std::vector<Place> places = this->places();
    for (std::size_t index = 0; index < rows_.size(); ++index) {
        grid_->addWidget(rows_[index], places[index].row, places[index].column);
        rows_[index]->show();
        grid_->setRowStretch(places[index].row, areSpread_ ? 1 : 0);
    }
    grid_->setRowStretch(static_cast<int>(rows_.size()) + 1, areSpread_ ? 0 : 1);
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
    const std::vector<Place> places = this->places();
    for (std::size_t index = 0; index < rows_.size(); ++index) {
        if (!places[index].isLast) {
            const QRect row = rows_[index]->geometry();
            painter.drawLine(row.left(), row.bottom(), row.right(), row.bottom());
        }
    }
}

} // namespace oakfen

#include "Oakfen/Widgets/Bills/UpcomingList.h"

#include <QPushButton>
#include <QResizeEvent>
#include <algorithm>
#include <map>
#include <unordered_set>
#include <utility>

#include "Oakfen/Widgets/Bills/DayHeading.h"

namespace oakfen {

UpcomingList::UpcomingList(BillsView& view, QWidget* parent) : QWidget(parent), view_(view) {
    setAccessibleName(tr("Upcoming"));
}

OccurrenceRow* UpcomingList::makeRow(const BillsContent::Row& content) {
    auto* row = new OccurrenceRow(content, this);
    row->acted = [this](OccurrenceRow& each, OccurrenceRow::Action action) { act(each, action); };
    row->menu = [this, row] {
        return view_.contextMenu(row->content().reminderID, row->content().isNext);
    };
    return row;
}

void UpcomingList::showDays(const std::vector<BillsContent::Day>& days) {
    const std::vector<OccurrenceRow*> earlierRows = rows_;
    const std::vector<std::size_t> earlierCounts = std::exchange(counts_, {});
    showRows(days);
    showHeadings(days);
    if (rows_ != earlierRows || counts_ != earlierCounts) {
        place();
    }
}

void UpcomingList::showRows(const std::vector<BillsContent::Day>& days) {
    // Of two records with one id there may be two rows for one date.
    std::multimap<std::pair<UUID, Date>, OccurrenceRow*> earlier;
    for (OccurrenceRow* row : rows_) {
        earlier.emplace(std::pair(row->content().reminderID, row->content().date), row);
    }
    rows_.clear();
    for (const BillsContent::Day& day : days) {
        for (const BillsContent::Row& content : day.rows) {
            if (auto known = earlier.extract(std::pair(content.reminderID, content.date))) {
                rows_.push_back(known.mapped());
                rows_.back()->showContent(content);
            } else {
                rows_.push_back(makeRow(content));
            }
        }
        counts_.push_back(day.rows.size());
    }
    for (const auto& [key, row] : earlier) {
        // Later: one of its own buttons may be what was pressed.
        row->hide();
        row->deleteLater();
    }
}

void UpcomingList::showHeadings(const std::vector<BillsContent::Day>& days) {
    while (headings_.size() > days.size()) {
        delete headings_.back();
        headings_.pop_back();
    }
    while (headings_.size() < days.size()) {
        headings_.push_back(new DayHeading(this));
    }
    for (std::size_t day = 0; day < days.size(); ++day) {
        headings_[day]->showDay(days[day]);
    }
}

std::vector<QWidget*> UpcomingList::lines() const {
    std::vector<QWidget*> result;
    auto row = rows_.begin();
    for (std::size_t day = 0; day < headings_.size(); ++day) {
        result.push_back(headings_[day]);
        for (std::size_t count = counts_[day]; count > 0; --count) {
            result.push_back(*row++);
        }
    }
    return result;
}

void UpcomingList::place() {
    const int headingHeight = DayHeading::neededHeight();
    const int rowHeight = OccurrenceRow::neededHeight();
    const std::vector<QWidget*> all = lines();
    putInReadingOrder(all);
    int top = 0;
    for (QWidget* line : all) {
        const int high = qobject_cast<DayHeading*>(line) != nullptr ? headingHeight : rowHeight;
        line->setGeometry(0, top, width(), high);
        line->show();
        top += high;
    }
    setFixedHeight(top);
}

void UpcomingList::putInReadingOrder(const std::vector<QWidget*>& lines) {
    // Moving one line looks through all of them, so those that stand right already stay.
    const std::unordered_set<const QWidget*> still(lines.begin(), lines.end());
    std::erase_if(ordered_, [&](const QWidget* line) { return !still.contains(line); });
    const auto moved = std::ranges::mismatch(lines, ordered_).in1;
    for (QWidget* line : std::ranges::subrange(moved, lines.end())) {
        // To the end of the children.
        line->raise();
    }
    ordered_ = lines;
}

QWidget* UpcomingList::putInTabOrder(QWidget* after) {
    for (OccurrenceRow* row : rowsToActOn()) {
        for (const auto action : {OccurrenceRow::Action::enter, OccurrenceRow::Action::skip}) {
            setTabOrder(after, row->button(action));
            after = row->button(action);
        }
    }
    return after;
}

std::vector<OccurrenceRow*> UpcomingList::rowsToActOn() const {
    std::vector<OccurrenceRow*> result;
    std::ranges::copy_if(rows_, std::back_inserter(result), [](const OccurrenceRow* row) {
        return row->button(OccurrenceRow::Action::enter) != nullptr;
    });
    return result;
}

QPushButton* UpcomingList::enterButtonFrom(std::size_t place) const {
    for (; place < rows_.size(); ++place) {
        if (QPushButton* button = rows_[place]->button(OccurrenceRow::Action::enter)) {
            return button;
        }
    }
    return nullptr;
}

void UpcomingList::act(const OccurrenceRow& row, OccurrenceRow::Action action) {
    const std::vector<OccurrenceRow*> before = rowsToActOn();
    const auto place = std::ranges::find(before, &row) - before.begin();
    const UUID reminderID = row.content().reminderID;
    action == OccurrenceRow::Action::enter ? view_.enter(reminderID) : view_.skip(reminderID);
    // The keyboard stays where it was in the list, which is at the next row now.
    const std::vector<OccurrenceRow*> after = rowsToActOn();
    if (after.empty()) {
        keyboardMoved(nullptr);
        return;
    }
    const auto next = std::min(place, std::ssize(after) - 1);
    QPushButton* button = after[static_cast<std::size_t>(next)]->button(action);
    button->setFocus(Qt::OtherFocusReason);
    keyboardMoved(button);
}

void UpcomingList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        place();
    }
}

} // namespace oakfen

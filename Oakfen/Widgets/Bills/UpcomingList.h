#pragma once

#include <functional>
#include <vector>

#include "Oakfen/Views/Bills/BillsView.h"
#include "Oakfen/Widgets/Bills/OccurrenceRow.h"

namespace oakfen {

class DayHeading;

/// What is due, day by day. The rows are put into their places here: there may be hundreds, and a
/// layout would look at all of them again and again.
class UpcomingList final : public QWidget {
    Q_OBJECT

public:
    explicit UpcomingList(BillsView& view, QWidget* parent = nullptr);

    /// Shows these days. The rows of the same due dates stay the same widgets.
    void showDays(const std::vector<BillsContent::Day>& days);
    /// Lets Tab come to the buttons as they are read, after that widget; returns the last of them.
    QWidget* putInTabOrder(QWidget* after);
    /// From top to bottom.
    [[nodiscard]] const std::vector<OccurrenceRow*>& rows() const { return rows_; }
    /// What enters the first row from that place on that can be entered; null for none.
    [[nodiscard]] QPushButton* enterButtonFrom(std::size_t place) const;

    /// Called when the keyboard has gone to that widget, which may be out of sight; null where no
    /// row is left that it could go to.
    std::function<void(QWidget*)> keyboardMoved = [](QWidget*) {};

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] OccurrenceRow* makeRow(const BillsContent::Row& content);
    void showRows(const std::vector<BillsContent::Day>& days);
    void showHeadings(const std::vector<BillsContent::Day>& days);
    /// Headings and rows as they are read.
    [[nodiscard]] std::vector<QWidget*> lines() const;
    void place();
    /// Lets screen readers come to the lines as they are read.
    void putInReadingOrder(const std::vector<QWidget*>& lines);
    void act(const OccurrenceRow& row, OccurrenceRow::Action action);
    [[nodiscard]] std::vector<OccurrenceRow*> rowsToActOn() const;

    BillsView& view_;
    std::vector<DayHeading*> headings_;
    std::vector<OccurrenceRow*> rows_;
    /// How many rows each heading has.
    std::vector<std::size_t> counts_;
    /// The lines in the order that screen readers know.
    std::vector<QWidget*> ordered_;
};

} // namespace oakfen

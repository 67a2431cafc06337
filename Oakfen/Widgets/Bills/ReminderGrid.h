#pragma once

#include <vector>

#include "Oakfen/Views/Bills/BillsView.h"
#include "Oakfen/Widgets/Bills/ListRow.h"

class QPushButton;

namespace oakfen {

/// Where the columns of the list of all reminders stand.
struct ReminderColumns {
    int payee = 0;
    int account = 0;
    int frequency = 0;
    int nextDue = 0;
    /// Where amounts end.
    int amountEnd = 0;
    int edit = 0;
};

/// One of all reminders, with the button that opens it.
class ReminderRow final : public ListRow {
    Q_OBJECT

public:
    ReminderRow(const ReminderColumns& columns, QWidget* parent);

    void showContent(const BillsContent::Reminder& content);
    [[nodiscard]] const BillsContent::Reminder& content() const { return content_; }
    [[nodiscard]] QPushButton* editButton() const { return edit_; }
    /// Takes its place, with the columns as they stand now.
    void putAt(const QRect& place);

protected:
    void paintRow(QPainter& painter) override;

private:
    const ReminderColumns& columns_;
    BillsContent::Reminder content_;
    QPushButton* edit_;
};

/// All reminders with their columns.
class ReminderGrid final : public QWidget {
    Q_OBJECT

public:
    explicit ReminderGrid(BillsView& view, QWidget* parent = nullptr);

    void showReminders(const std::vector<BillsContent::Reminder>& reminders);
    /// Lets Tab come to the buttons as they are read, after that widget.
    void putInTabOrder(QWidget* after);
    [[nodiscard]] const std::vector<ReminderRow*>& rows() const { return rows_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] ReminderRow* makeRow(const UUID& id);
    void place();
    void placeColumns();

    BillsView& view_;
    ReminderColumns columns_;
    std::vector<ReminderRow*> rows_;
};

} // namespace oakfen

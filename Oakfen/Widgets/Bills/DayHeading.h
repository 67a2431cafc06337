#pragma once

#include <QLabel>

#include "Oakfen/Views/Bills/BillsContent.h"

namespace oakfen {

/// The day above the rows that are due then.
class DayHeading final : public QLabel {
    Q_OBJECT

public:
    explicit DayHeading(QWidget* parent);

    void showDay(const BillsContent::Day& day);

    [[nodiscard]] static int neededHeight();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString relative_;
    bool isOverdue_ = false;
};

} // namespace oakfen

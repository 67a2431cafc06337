#pragma once

#include <QWidget>

#include "Oakfen/Views/Charts/ChartTable.h"

namespace oakfen {

/// The box beside the value that is pointed at. It lets the pointer through, so that it never
/// stands in its way.
class ChartTooltipFrame final : public QWidget {
    Q_OBJECT

public:
    explicit ChartTooltipFrame(QWidget* parent);

    /// Shows the tooltip, with as many of its notes as a box so high can hold.
    void setTooltip(const ChartTooltip& tooltip, double mostHeight);
    [[nodiscard]] const ChartTooltip& tooltip() const { return tooltip_; }
    /// The size of the box, without its shadow.
    [[nodiscard]] QSize boxSize() const;
    /// Puts the upper left corner of the box there.
    void moveBox(const QPoint& corner);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QSize sizeOfSingleLine() const;
    [[nodiscard]] int rowHeight() const;
    void paintSingleLine(QPainter& painter, const QRectF& inside) const;
    void paintRows(QPainter& painter, QRectF inside) const;

    ChartTooltip tooltip_;
};

} // namespace oakfen

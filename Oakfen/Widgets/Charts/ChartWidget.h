#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "Oakfen/Views/Charts/ChartTable.h"

namespace oakfen {

/// What charts of all kinds have in common. The pointer and the arrow keys go through the values,
/// a click or Return activates one, and screen readers find a table.
class ChartWidget : public QWidget {
    Q_OBJECT

public:
    explicit ChartWidget(QWidget* parent = nullptr);
    ~ChartWidget() override;

    /// Called with the value that the person clicks or presses Return at, where the chart leads on.
    std::function<void(const ChartPoint&)> activated = [](const ChartPoint&) {};

    [[nodiscard]] const ChartTable& table() const { return table_; }
    /// The value that is set off: that under the pointer, else that of the keyboard.
    [[nodiscard]] std::optional<ChartPoint> shownPoint() const;
    /// The value that the keyboard is at.
    [[nodiscard]] const ChartPoint& keyboardPoint() const { return keyboard_; }
    /// Where a value is drawn.
    [[nodiscard]] virtual QRectF placeOf(const ChartPoint& point) const = 0;
    /// The value drawn at the spot.
    [[nodiscard]] virtual std::optional<ChartPoint> pointAt(const QPointF& spot) const = 0;
    /// Activates a value.
    void activate(const ChartPoint& point);

protected:
    /// Takes over the values of a new content.
    void setTable(ChartTable table);
    /// Whether the keyboard is here and its way is to be seen.
    [[nodiscard]] bool showsKeyboard() const { return hasFocus() && showsKeyboard_; }
    /// Up and Down go along the places too, as where those stand below each other.
    void setPlacesGoDown() { placesGoDown_ = true; }
    /// Called whenever another value is set off, and whenever things have moved.
    virtual void shownPointChanged() {}
    /// Called when the texts may need other room.
    virtual void layOutAgain() = 0;

    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void setHovered(std::optional<ChartPoint> point);
    void setShowsKeyboard(bool shows);
    void step(ChartMove move);
    void tellScreenReader();
    /// Shows what is set off now.
    void follow();
    [[nodiscard]] std::optional<ChartMove> moveOf(int key) const;

    ChartTable table_;
    std::optional<ChartPoint> hovered_;
    std::optional<ChartPoint> pressed_;
    ChartPoint keyboard_;
    bool showsKeyboard_ = false;
    bool placesGoDown_ = false;
};

} // namespace oakfen

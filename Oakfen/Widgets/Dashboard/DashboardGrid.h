#pragma once

#include <QWidget>
#include <array>

namespace oakfen {

/// Places the six small cards of the start screen in one, two or three columns, whichever the width
/// has room for. What stands side by side ends together.
class DashboardGrid final : public QWidget {
    Q_OBJECT

public:
    static constexpr std::size_t cardCount = 6;
    /// The cards in their order, of which the keyboard goes from one to the next.
    explicit DashboardGrid(const std::array<QWidget*, cardCount>& cards, QWidget* parent = nullptr);

    /// How many columns have room in that width.
    [[nodiscard]] static int columnCount(int width);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    using Places = std::array<QRect, cardCount>;

    [[nodiscard]] int heightOf(std::size_t card, int width) const;
    /// Where each card stands in that width, and the height that they need.
    [[nodiscard]] std::pair<Places, int> places(int width) const;
    [[nodiscard]] std::pair<Places, int> placesInColumns(int width) const;
    [[nodiscard]] std::pair<Places, int> placesInRows(int width) const;
    void place();

    std::array<QWidget*, cardCount> cards_;
};

} // namespace oakfen

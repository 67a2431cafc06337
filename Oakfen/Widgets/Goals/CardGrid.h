#pragma once

#include <QWidget>
#include <vector>

namespace oakfen {

/// Lays out cards of one width in as many columns as there is room for, row by row. Those of a row
/// are equally high.
class CardGrid final : public QWidget {
public:
    explicit CardGrid(QWidget* parent = nullptr) : QWidget(parent) {}

    /// Shows these children of its own, in this order.
    void showCards(std::vector<QWidget*> cards);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// As narrow as a card may become, so that all of them can be read.
    [[nodiscard]] int leastWidth() const;
    [[nodiscard]] QWidget* card(int place) const { return cards_[static_cast<std::size_t>(place)]; }
    void place();

    std::vector<QWidget*> cards_;
};

} // namespace oakfen

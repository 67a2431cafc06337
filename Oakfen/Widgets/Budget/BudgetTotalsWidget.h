#pragma once

#include <QWidget>
#include <vector>

#include "Oakfen/Views/Budget/BudgetView.h"

class QLabel;

namespace oakfen {

class BudgetBarWidget;
class Card;
class MetricButton;
class MetricWidget;
class MoneyLabel;

/// What came and went and what of it was planned, in cards side by side, or one beneath the other
/// where the figures have no room else.
class BudgetTotalsWidget final : public QWidget {
public:
    explicit BudgetTotalsWidget(BudgetView& view, QWidget* parent = nullptr);

    void showContent(const BudgetContent& content);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// The figures of a kind.
    struct Figures {
        MetricButton* actual = nullptr;
        MetricWidget* budget = nullptr;
        BudgetBarWidget* bar = nullptr;

        void show(const BudgetTotals& totals) const;
    };

    [[nodiscard]] Figures addTotals(BudgetView& view, const QString& title, CategoryKind kind);
    void addLeftToBudget();
    [[nodiscard]] Card* addCard(const QString& title);
    /// Where the cards stand at that width.
    [[nodiscard]] std::vector<QRect> places(int width) const;
    void place();

    std::vector<Card*> cards_;
    Figures income_;
    Figures spending_;
    MoneyLabel* left_ = nullptr;
};

} // namespace oakfen

#pragma once

#include <QWidget>

#include "Oakfen/Views/Components/Components.h"

namespace oakfen {

/// A bar that fills as a budget is used up.
class BudgetBarWidget final : public QWidget {
public:
    explicit BudgetBarWidget(double fraction = 0, QWidget* parent = nullptr);

    /// Fills the bar so far; 1 is all of it.
    void setFraction(double fraction);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    BudgetBar bar_;
};

} // namespace oakfen

#pragma once

#include <QWidget>

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

/// An amount in even digits.
class MoneyLabel final : public QWidget {
public:
    explicit MoneyLabel(TextStyle style = TextStyle::body, QWidget* parent = nullptr);

    /// Shows another amount.
    void setMoney(const MoneyText& money);
    [[nodiscard]] const MoneyText& money() const { return money_; }
    /// Shows it in another size and weight.
    void setStyle(TextStyle style);
    /// At the left, or at the right of the room that it has.
    void setAlignment(Qt::Alignment alignment);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    MoneyText money_;
    TextStyle style_;
    Qt::Alignment alignment_ = Qt::AlignLeft;
};

} // namespace oakfen

#pragma once

#include <QWidget>

#include "Oakfen/Views/Components.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

/// An amount in even digits.
class MoneyLabel final : public QWidget {
public:
    explicit MoneyLabel(TextStyle style = TextStyle::body, QWidget* parent = nullptr);

    void setMoney(const MoneyText& money);
    [[nodiscard]] const MoneyText& money() const { return money_; }
    void setStyle(TextStyle style);
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

#pragma once

#include <QWidget>

#include "Oakfen/Widgets/Components/LabelledFigure.h"

namespace oakfen {

/// An amount beneath its title, at the right: one of the figures at the foot of a sheet.
class CaptionedAmount final : public QWidget {
public:
    explicit CaptionedAmount(const QString& title, TextStyle style = TextStyle::bodyStrong,
                             QWidget* parent = nullptr);

    /// Shows another amount.
    void setMoney(const MoneyText& money) { figure_.setMoney(money); }

private:
    LabelledFigure figure_;
};

} // namespace oakfen

#pragma once

#include <QLabel>

#include "Oakfen/Widgets/Components/MoneyLabel.h"

namespace oakfen {

/// An amount and the label that says what it is. A screen reader hears the two as one sentence: the
/// amount by itself would say too little.
struct LabelledFigure {
    QLabel* label = nullptr;
    MoneyLabel* amount = nullptr;

    void setMoney(const MoneyText& money) const;
    /// Spoken in other words than those of the label.
    void setMoney(const MoneyText& money, const QString& sentence) const;
    void setVisible(bool isVisible) const;
};

} // namespace oakfen

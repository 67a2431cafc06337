#include "Oakfen/Widgets/Components/LabelledFigure.h"

#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

void LabelledFigure::setMoney(const MoneyText& money) const {
    setMoney(money, label->text() + QStringLiteral(", ") + qt(money.text));
}

void LabelledFigure::setMoney(const MoneyText& money, const QString& sentence) const {
    amount->setMoney(money);
    label->setAccessibleName(sentence);
    amount->setAccessibleName({});
}

void LabelledFigure::setVisible(bool isVisible) const {
    label->setVisible(isVisible);
    amount->setVisible(isVisible);
}

} // namespace oakfen

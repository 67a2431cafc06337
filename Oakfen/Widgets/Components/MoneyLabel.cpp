#include "Oakfen/Widgets/Components/MoneyLabel.h"

#include <cmath>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

MoneyLabel::MoneyLabel(TextStyle style, QWidget* parent) : QWidget(parent), style_(style) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void MoneyLabel::setMoney(const MoneyText& money) {
    if (money == money_) {
        return;
    }
    money_ = money;
    setAccessibleName(qt(money.text));
    updateGeometry();
    update();
}

void MoneyLabel::setStyle(TextStyle style) {
    style_ = style;
    updateGeometry();
    update();
}

void MoneyLabel::setAlignment(Qt::Alignment alignment) {
    alignment_ = alignment;
    update();
}

QSize MoneyLabel::sizeHint() const {
    const QFont font = Theme::font(style_);
    return {static_cast<int>(std::ceil(figureWidth(font, qt(money_.text)))) + 1,
            QFontMetrics(font).height()};
}

void MoneyLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setFont(fittingFigureFont(Theme::font(style_), qt(money_.text), width()));
    painter.setPen(Theme::color(themeColor(money_.tone)));
    drawFigures(painter, rect(), qt(money_.text), alignment_);
}

} // namespace oakfen

#include "Oakfen/Widgets/Components/FigureLine.h"

#include <algorithm>

#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

FigureLine::FigureLine(const QString& label, TextStyle labelStyle, TextStyle amountStyle,
                       ThemeColor labelRole, QWidget* parent)
    : QWidget(parent), labelStyle_(labelStyle),
      amountStyle_(amountStyle), parts_{new QLabel(label, this),
                                        new MoneyLabel(amountStyle, this)} {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    parts_.label->setTextFormat(Qt::PlainText);
    Theme::setText(*parts_.label, labelStyle, labelRole);
    parts_.amount->setAlignment(Qt::AlignRight);
}

void FigureLine::setFigure(const FigureTexts& texts, TextTone tone) {
    texts_ = texts;
    tone_ = tone;
    updateGeometry();
    place();
}

TitledFigureLayout FigureLine::layOut(int width) const {
    return layOutTitledFigure({Theme::font(labelStyle_), parts_.label->text()}, {},
                              Theme::font(amountStyle_), texts_, width, width);
}

int FigureLine::lineHeight() const {
    return std::max(QFontMetrics(Theme::font(labelStyle_)).height(),
                    QFontMetrics(Theme::font(amountStyle_)).height());
}

int FigureLine::heightForWidth(int width) const {
    return layOut(width).lines * lineHeight();
}

QSize FigureLine::sizeHint() const {
    return {1, heightForWidth(width())};
}

QSize FigureLine::minimumSizeHint() const {
    return {1, lineHeight()};
}

void FigureLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void FigureLine::place() {
    const TitledFigureLayout layout = layOut(width());
    const int lineHeight = this->lineHeight();
    parts_.setMoney({.text = utf8(layout.figure), .tone = tone_},
                    parts_.label->text() + QStringLiteral(", ") + texts_.whole);
    setToolTip(layout.figure == texts_.whole ? QString() : plainToolTip(texts_.whole));
    parts_.label->setGeometry(0, 0, width(), lineHeight);
    parts_.amount->setGeometry(0, layout.figureLine * lineHeight, width(), lineHeight);
}

} // namespace oakfen

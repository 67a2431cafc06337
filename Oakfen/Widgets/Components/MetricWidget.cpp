#include "Oakfen/Widgets/Components/MetricWidget.h"

#include <QVBoxLayout>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

MetricWidget::MetricWidget(const Metric& metric, QWidget* parent)
    : QWidget(parent), figure_{new QLabel, new MoneyLabel} {
    figure_.label->setTextFormat(Qt::PlainText);
    Theme::setText(*figure_.label, TextStyle::capitals, ThemeColor::secondaryText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(figure_.label);
    column->addWidget(figure_.amount);
    setMetric(metric);
}

void MetricWidget::setMetric(const Metric& metric) {
    figure_.label->setText(qt(metric.caption));
    figure_.amount->setStyle(metric.isLarge ? TextStyle::title : TextStyle::figure);
    figure_.setMoney({.text = metric.figure, .tone = metric.tint}, qt(metric.accessibilityText));
}

} // namespace oakfen

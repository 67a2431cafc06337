#include "Oakfen/Widgets/Components/MetricWidget.h"

#include <QLabel>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Bridge.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Theme.h"

namespace oakfen {

MetricWidget::MetricWidget(const Metric& metric, QWidget* parent)
    : QWidget(parent), caption_(new QLabel), figure_(new MoneyLabel) {
    caption_->setTextFormat(Qt::PlainText);
    Theme::setText(*caption_, TextStyle::captionStrong, ThemeColor::secondaryText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(caption_);
    column->addWidget(figure_);
    setMetric(metric);
}

void MetricWidget::setMetric(const Metric& metric) {
    caption_->setText(qt(metric.caption));
    figure_->setStyle(metric.isLarge ? TextStyle::largeFigure : TextStyle::headline);
    figure_->setMoney({.text = metric.figure, .tone = metric.tint});
    // One sentence for screen readers; the figure by itself would say too little.
    caption_->setAccessibleName(qt(metric.accessibilityText));
    figure_->setAccessibleName({});
}

} // namespace oakfen

#include "Oakfen/Widgets/Components/MetricWidget.h"

#include <QPainter>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

/// A small square in the colour that something has in a chart.
class KeySquare final : public QWidget {
public:
    explicit KeySquare(TextTone tone) : tone_(tone) { setFixedSize(Theme::grid, Theme::grid); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fillColor(tone_));
        painter.drawRoundedRect(rect(), 2, 2);
    }

private:
    TextTone tone_;
};

} // namespace

MetricWidget::MetricWidget(const Metric& metric, QWidget* parent)
    : QWidget(parent), figure_{new QLabel, new MoneyLabel}, captionLine_(new QHBoxLayout) {
    figure_.label->setTextFormat(Qt::PlainText);
    Theme::setText(*figure_.label, TextStyle::capitals, ThemeColor::secondaryText);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    captionLine_->setSpacing(Theme::grid * 3 / 4);
    captionLine_->addWidget(figure_.label, 1);
    column->addLayout(captionLine_);
    column->addWidget(figure_.amount);
    setMetric(metric);
}

void MetricWidget::setKey(TextTone tone) {
    captionLine_->insertWidget(0, new KeySquare(tone));
}

void MetricWidget::setMetric(const Metric& metric) {
    figure_.label->setText(qt(metric.caption));
    figure_.amount->setStyle(metric.isLarge ? TextStyle::title : TextStyle::figure);
    figure_.setMoney({.text = metric.figure, .tone = metric.tint}, qt(metric.accessibilityText));
}

} // namespace oakfen

#include "Oakfen/Widgets/Dashboard/FigureCards.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>

#include "Oakfen/Widgets/Charts/PlotChartWidget.h"
#include "Oakfen/Widgets/Charts/RingChartWidget.h"
#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/MetricButton.h"
#include "Oakfen/Widgets/Components/MetricWidget.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

constexpr int plotHeight = 68;
constexpr int ringDiameter = 150;
constexpr int arrowSize = 12;

} // namespace

NetWorthPart::NetWorthPart(Card& card)
    : today_(new MetricWidget({})),
      up_(new SymbolLabel("arrow.up.right", arrowSize, ThemeColor::positive)),
      down_(new SymbolLabel("arrow.down.right", arrowSize, ThemeColor::negative)),
      change_(new MoneyLabel), changeLine_(new QWidget), chart_(new PlotChartWidget(plotHeight)) {
    card.setNote(QStringLiteral("12 months"));
    auto* change = new QHBoxLayout(changeLine_);
    change->setContentsMargins(0, 0, 0, Theme::grid / 2);
    change->setSpacing(Theme::grid / 2);
    change->addWidget(up_);
    change->addWidget(down_);
    change->addWidget(change_);
    changeLine_->setToolTip(QStringLiteral("Change since last month end"));
    auto* line = new QHBoxLayout;
    line->setSpacing(Theme::grid * 3 / 2);
    line->addWidget(today_);
    line->addWidget(changeLine_, 0, Qt::AlignBottom);
    line->addStretch(1);
    card.content()->addLayout(line);
    card.content()->addWidget(chart_, 1);
}

void NetWorthPart::show(const NetWorthCard& content) {
    if (content == shown_) {
        return;
    }
    shown_ = content;
    today_->setMetric(content.today);
    const bool isUp = content.changeSymbolName == "arrow.up.right";
    up_->setVisible(isUp);
    down_->setVisible(!isUp);
    change_->setMoney(content.change);
    change_->setAccessibleName(qt(content.spokenChange));
    chart_->setVisible(!content.chart.places.empty());
    chart_->setChart(content.chart);
}

CashFlowPart::CashFlowPart(DashboardView& view, Card& card)
    : income_(new MetricButton), spending_(new MetricButton), net_(new MetricWidget({})),
      chart_(new PlotChartWidget(plotHeight)) {
    card.setNote(QStringLiteral("This month"));
    auto* line = new QHBoxLayout;
    line->setSpacing(2 * Theme::grid);
    for (QWidget* metric : std::initializer_list<QWidget*>{income_, spending_, net_}) {
        // They share the width, whatever they hold.
        metric->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        metric->setMinimumWidth(1);
        line->addWidget(metric, 1, Qt::AlignTop);
    }
    const auto leadOn = [this, &view](MetricButton& figure, std::size_t side, const QString& help) {
        figure.setToolTip(help);
        QObject::connect(&figure, &QAbstractButton::clicked, &figure, [this, &view, side] {
            if (!shown_.lines.empty()) {
                view.showLines(shown_.lines.back()[side]);
            }
        });
    };
    leadOn(*income_, 0, QStringLiteral("Show what came in this month"));
    leadOn(*spending_, 1, QStringLiteral("Show what was spent this month"));
    income_->setKey(TextTone::positive);
    spending_->setKey(TextTone::warning);
    card.content()->addLayout(line);
    card.content()->addWidget(chart_, 1);
    chart_->activated = [this, &view](const ChartPoint& point) {
        if (point.place < shown_.lines.size()) {
            view.showLines(shown_.lines[point.place].at(point.series));
        }
    };
}

void CashFlowPart::show(const CashFlowCard& content) {
    if (content == shown_) {
        return;
    }
    shown_ = content;
    income_->setMetric(content.income);
    spending_->setMetric(content.spending);
    net_->setMetric(content.net);
    // Without a single value there is nothing to draw.
    const auto isSomething = [](const ChartValue& value) { return value.value != 0; };
    chart_->setVisible(std::ranges::any_of(content.chart.bars, [&](const ChartSeries& series) {
        return std::ranges::any_of(series.values, isSomething);
    }));
    chart_->setChart(content.chart);
}

SpendingPart::SpendingPart(DashboardView& view, Card& card)
    : nothing_(new QLabel(QStringLiteral("No spending yet this month."))),
      chart_(new RingChartWidget(ringDiameter)) {
    QPushButton* link = card.addLink(QStringLiteral("Reports"), QStringLiteral("Show the reports"));
    QObject::connect(link, &QPushButton::clicked, chart_,
                     [&view] { view.show(SidebarItem::Kind::reports); });
    Theme::setText(*nothing_, TextStyle::body, ThemeColor::secondaryText);
    card.content()->addWidget(nothing_, 0, Qt::AlignTop);
    card.content()->addWidget(chart_, 1);
    chart_->hide();
    chart_->activated = [this, &view](const ChartPoint& point) {
        if (point.place < shown_.lines.size()) {
            view.showLines(shown_.lines[point.place]);
        }
    };
}

void SpendingPart::show(const SpendingCard& content) {
    if (content == shown_) {
        return;
    }
    shown_ = content;
    const bool hasSpending = !content.chart.sectors.empty();
    nothing_->setVisible(!hasSpending);
    chart_->setVisible(hasSpending);
    chart_->setChart(content.chart);
}

} // namespace oakfen

#include "Oakfen/Widgets/Bills/ProjectionCard.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

#include "Oakfen/Widgets/Bills/SwitchButton.h"
#include "Oakfen/Widgets/Charts/PlotChartWidget.h"
#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

namespace {

constexpr int plotHeight = 188;
constexpr int pickerWidth = 200;

} // namespace

ProjectionCard::ProjectionCard(BillsView& view, const Clock& clock, QWidget* parent)
    : QWidget(parent), view_(view), triesOut_(new SwitchButton(tr("What If"))),
      account_(new AccountPicker(tr("Account"))), chart_(new PlotChartWidget(plotHeight)),
      nothing_(new QLabel(tr("Choose an account to see its balance in the coming days."))),
      whatIf_(new WhatIfList(view, clock)) {
    auto* card = new Card(tr("Projected Balance"), "chart.xyaxis.line");
    card->setAccessory(makeTools());
    auto* body = new QHBoxLayout;
    body->setSpacing(3 * Theme::grid);
    body->addWidget(chart_, 1);
    body->addWidget(nothing_, 1, Qt::AlignTop);
    body->addWidget(whatIf_);
    card->content()->addLayout(body);
    nothing_->setWordWrap(true);
    nothing_->setMinimumHeight(plotHeight);
    nothing_->setAlignment(Qt::AlignTop);
    Theme::setText(*nothing_, TextStyle::body, ThemeColor::secondaryText);

    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(card);
}

QWidget* ProjectionCard::makeTools() {
    auto* tools = new QWidget;
    auto* line = new QHBoxLayout(tools);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(2 * Theme::grid);
    line->addWidget(triesOut_);
    line->addWidget(account_);
    triesOut_->setToolTip(tr("Try out entries that are only on this screen"));
    connect(triesOut_, &QAbstractButton::toggled, this,
            [this](bool isOn) { view_.setTriesOut(isOn); });
    account_->setFixedWidth(pickerWidth);
    account_->setToolTip(tr("The account whose balance is projected"));
    account_->chosen = [this] { view_.setForecastAccountID(account_->chosenID()); };
    return tools;
}

void ProjectionCard::showProjection(const BillsContent::Projection& projection) {
    if (listed_ != projection.accounts) {
        listed_ = projection.accounts;
        account_->setRows(listed_);
    }
    if (account_->chosenID() != projection.accountID) {
        account_->choose(projection.accountID);
    }
    chart_->setVisible(projection.accountID.has_value());
    nothing_->setVisible(!projection.accountID);
    chart_->setChart(projection.chart);
    whatIf_->setVisible(projection.triesOut && projection.accountID);
    triesOut_->setEnabled(projection.accountID.has_value());
    const QSignalBlocker blocker(triesOut_);
    triesOut_->setChecked(projection.triesOut);
    whatIf_->showProjection(projection);
}

} // namespace oakfen

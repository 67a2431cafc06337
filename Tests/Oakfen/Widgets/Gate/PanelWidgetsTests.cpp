#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "Oakfen/Widgets/Components/BudgetBarWidget.h"
#include "Oakfen/Widgets/Components/Card.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Components/MetricWidget.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Components/SymbolLabel.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {

using testing::amount;

namespace {

/// Each test in the light and in the dark theme.
class PanelWidgets : public ::testing::TestWithParam<bool> {
protected:
    PanelWidgets() { Theme::setDark(GetParam()); }
    ~PanelWidgets() override { Theme::setDark(false); }

    /// The colour of the bar at that share of its width.
    static QColor colorAt(BudgetBarWidget& bar, double place) {
        bar.resize(200, 10);
        const QImage image = bar.grab().toImage();
        return image.pixelColor(static_cast<int>(place * (image.width() - 1)), image.height() / 2);
    }
};

INSTANTIATE_TEST_SUITE_P(LightAndDark, PanelWidgets, ::testing::Bool());

} // namespace

TEST_P(PanelWidgets, ABudgetBarFillsInTheColourOfItsShare) {
    BudgetBarWidget bar(0.5);
    EXPECT_EQ(colorAt(bar, 0.25), fillColor(TextTone::positive));
    EXPECT_EQ(colorAt(bar, 0.75), Theme::color(ThemeColor::surfaceRaised));
    bar.setFraction(0.85);
    EXPECT_EQ(colorAt(bar, 0.8), fillColor(TextTone::warning));
    EXPECT_EQ(colorAt(bar, 0.9), Theme::color(ThemeColor::surfaceRaised));
}

TEST_P(PanelWidgets, ABudgetBarIsNeverFullerThanFull) {
    for (const double fraction : {1.0, 3.0}) {
        BudgetBarWidget bar(fraction);
        EXPECT_EQ(colorAt(bar, 0.05), fillColor(TextTone::negative));
        EXPECT_EQ(colorAt(bar, 0.95), fillColor(TextTone::negative));
    }
}

TEST_P(PanelWidgets, ABudgetBarTellsItsShareInWords) {
    BudgetBarWidget bar(0.42);
    EXPECT_EQ(bar.accessibleName(), QStringLiteral("42 percent used"));
    bar.setFraction(1.5);
    EXPECT_EQ(bar.accessibleName(), QStringLiteral("150 percent used"));
    EXPECT_EQ(bar.toolTip(), bar.accessibleName());
}

TEST_P(PanelWidgets, AMetricShowsItsCaptionAboveItsFigure) {
    MetricWidget shown(metric("Net Worth", amount("12.5"), "CAD", TextTone::positive));
    const auto* caption = shown.findChild<QLabel*>();
    EXPECT_EQ(caption->text(), QStringLiteral("NET WORTH"));
    EXPECT_EQ(caption->accessibleName(), QStringLiteral("Net Worth, $12.50"));
    const int usual = shown.sizeHint().height();
    shown.setMetric(metric("Debts", amount("-1"), "CAD", TextTone::negative, true));
    EXPECT_EQ(caption->text(), QStringLiteral("DEBTS"));
    EXPECT_EQ(caption->accessibleName(), QStringLiteral("Debts, -$1.00"));
    EXPECT_GT(shown.sizeHint().height(), usual);
}

TEST_P(PanelWidgets, AMetricDrawsItsFigureInItsTint) {
    MetricWidget shown(metric("Net Worth", amount("88888"), "CAD", TextTone::negative, true));
    shown.resize(shown.sizeHint());
    const QImage image = shown.grab().toImage();
    const QColor tint = Theme::color(ThemeColor::negative);
    int tinted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            tinted += image.pixelColor(x, y) == tint ? 1 : 0;
        }
    }
    EXPECT_GT(tinted, 20);
}

TEST_P(PanelWidgets, ACardHasATitleLineAndItsContentBeneath) {
    Card card(QStringLiteral("Upcoming Bills"), "calendar.badge.clock");
    auto* more = new QPushButton(QStringLiteral("Show All"));
    auto* text = new QLabel(QStringLiteral("Rent"));
    card.setAccessory(more);
    card.content()->addWidget(text);
    card.resize(400, 200);
    card.show();
    EXPECT_EQ(card.accessibleName(), QStringLiteral("Upcoming Bills"));
    const auto* symbol = card.findChild<SymbolLabel*>();
    const auto* title = card.findChild<QLabel*>();
    ASSERT_NE(symbol, nullptr);
    EXPECT_EQ(title->text(), QStringLiteral("Upcoming Bills"));
    EXPECT_LT(symbol->x(), title->x());
    EXPECT_GT(more->x(), title->geometry().right());
    EXPECT_GT(text->y(), title->geometry().bottom());
    EXPECT_EQ(card.grab().toImage().pixelColor(200, 190), Theme::color(ThemeColor::surface));
}

TEST_P(PanelWidgets, ACardNeedsNeitherIconNorAccessory) {
    const Card card(QStringLiteral("Notes"));
    EXPECT_EQ(card.findChild<SymbolLabel*>(), nullptr);
    EXPECT_EQ(card.findChildren<QLabel*>().size(), 1);
}

TEST_P(PanelWidgets, TheChartColoursAreTheTwelveNamedOnesInOrder) {
    // Where each name lies on the colour circle.
    const std::array<std::pair<int, int>, 12> hues{{{205, 225},
                                                    {175, 190},
                                                    {20, 35},
                                                    {325, 340},
                                                    {265, 285},
                                                    {115, 130},
                                                    {235, 245},
                                                    {40, 50},
                                                    {155, 170},
                                                    {15, 30},
                                                    {192, 202},
                                                    {0, 10}}};
    for (std::size_t series = 0; series < hues.size(); ++series) {
        const int hue = Theme::chartColor(series).hsvHue();
        EXPECT_GE(hue, hues[series].first) << series;
        EXPECT_LE(hue, hues[series].second) << series;
        EXPECT_EQ(Theme::chartColor(series + hues.size()), Theme::chartColor(series));
    }
}

} // namespace oakfen

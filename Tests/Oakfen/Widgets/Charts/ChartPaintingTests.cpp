#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cstdlib>

#include "Oakfen/Widgets/Charts/HorizontalBarsWidget.h"
#include "Oakfen/Widgets/Charts/PlotChartWidget.h"
#include "Oakfen/Widgets/Charts/RingChartWidget.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "Tests/Oakfen/Views/Charts/ChartSamples.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using namespace oakfen::testing;

/// How many pixels of the area fit.
template <typename Fits>
int countPixels(const QImage& image, const QRect& area, Fits&& fits) {
    int count = 0;
    const QRect inside = area & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = inside.left(); x <= inside.right(); ++x) {
            count += fits(line[x]) ? 1 : 0;
        }
    }
    return count;
}

/// A picture of the widget, with a rim around it that it must leave alone.
QImage pictureOf(QWidget& widget, double scale) {
    constexpr int rim = 20;
    const QSizeF size = QSizeF(widget.size()) + QSizeF(2 * rim, 2 * rim);
    QImage image((size * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(rim, rim), QRegion(), QWidget::DrawChildren);
    const int edge = static_cast<int>(rim * scale);
    const QRect inside = image.rect().adjusted(edge, edge, -edge, -edge);
    const auto isDrawn = [](QRgb pixel) { return qAlpha(pixel) > 0; };
    EXPECT_EQ(countPixels(image, image.rect(), isDrawn), countPixels(image, inside, isDrawn));
    QImage picture = image.copy(inside);
    picture.setDevicePixelRatio(scale);
    return picture;
}

/// How many pixels of the area have nearly that colour.
int pixelsOf(const QImage& image, const QRectF& area, const QColor& color) {
    const double scale = image.devicePixelRatio();
    const QRectF pixels(area.topLeft() * scale, area.size() * scale);
    return countPixels(image, pixels.toAlignedRect(), [&color](QRgb pixel) {
        constexpr int tolerance = 24;
        return qAlpha(pixel) > 200 && std::abs(qRed(pixel) - color.red()) < tolerance &&
               std::abs(qGreen(pixel) - color.green()) < tolerance &&
               std::abs(qBlue(pixel) - color.blue()) < tolerance;
    });
}

class ChartPaintingTest : public ::testing::TestWithParam<double> {
protected:
    // In the dark at the larger scale.
    ChartPaintingTest() { Theme::setDark(GetParam() > 1); }
    ~ChartPaintingTest() override { Theme::setDark(false); }

    LocaleForTest locale{"en_CA"};
};

bool hasOtherThanZero(const SampleSeries& sample) {
    return std::any_of(sample.amounts.begin(), sample.amounts.end(),
                       [](const Decimal& amount) { return !amount.isZero(); });
}

bool hasPositive(const SampleSeries& sample) {
    return std::any_of(sample.amounts.begin(), sample.amounts.end(),
                       [](const Decimal& amount) { return amount.isPositive(); });
}

/// The plot, and what dots at its edges need beside it.
QRectF plotOf(const PlotChartWidget& chart) {
    const ChartRect& plot = chart.plotLayout().plot;
    return QRectF(plot.x, plot.y, plot.width, plot.height).adjusted(-4, -4, 4, 4);
}

TEST_P(ChartPaintingTest, everyPlotIsDrawnInsideOfItsWidgetNarrowAndWide) {
    for (const SampleSeries& sample : sampleSeries()) {
        for (const int width : {160, 900}) {
            SCOPED_TRACE(sample.name + " at " + std::to_string(width));
            PlotChartWidget lines(100);
            lines.setChart(lineChart(sample.amounts));
            lines.resize(width, lines.minimumSizeHint().height());
            const QImage line = pictureOf(lines, GetParam());
            EXPECT_EQ(lines.plotLayout().plot.height, 100);
            EXPECT_EQ(pixelsOf(line, plotOf(lines), Theme::chartColor(0)) > 10,
                      !sample.amounts.empty());

            PlotChartWidget bars(100);
            bars.setChart(barChart(sample.amounts));
            bars.resize(width, bars.minimumSizeHint().height());
            const QImage bar = pictureOf(bars, GetParam());
            EXPECT_EQ(pixelsOf(bar, plotOf(bars), Theme::chartColor(2)) > 10,
                      !sample.amounts.empty());
            EXPECT_EQ(pixelsOf(bar, plotOf(bars), Theme::chartColor(1)) > 20,
                      hasOtherThanZero(sample));
        }
    }
}

TEST_P(ChartPaintingTest, everyRingAndEveryBarIsDrawnInsideOfItsWidget) {
    for (const SampleSeries& sample : sampleSeries()) {
        for (const int width : {160, 900}) {
            SCOPED_TRACE(sample.name + " at " + std::to_string(width));
            RingChartWidget ring(150);
            ring.setChart(ringChart(sample.amounts));
            ring.resize(width, ring.heightForWidth(width));
            const QImage round = pictureOf(ring, GetParam());
            const ChartRect& place = ring.ringLayout().ring;
            EXPECT_EQ(pixelsOf(round, QRectF(place.x, place.y, place.width, place.height),
                               Theme::color(ThemeColor::surfaceRaised)) > 1000,
                      !hasPositive(sample));

            HorizontalBarsWidget bars;
            bars.setChart(horizontalBarChart(sample.amounts));
            bars.resize(width, std::max(20, bars.sizeHint().height()));
            const QImage bar = pictureOf(bars, GetParam());
            EXPECT_EQ(pixelsOf(bar, bars.rect(), Theme::chartColor(0)) > 20,
                      hasOtherThanZero(sample) && bars.barsLayout().rows[0].bar.width > 0);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AtScale, ChartPaintingTest, ::testing::Values(1.0, 2.0));

TEST(ChartPaintingThemeTest, anotherThemeDrawsInItsColours) {
    PlotChartWidget chart(100);
    chart.setChart(lineChart(wavingAmounts(12, 100000, 50000)));
    chart.resize(400, 130);
    Theme::setDark(true);
    const int dark = pixelsOf(pictureOf(chart, 1), chart.rect(), Theme::chartColor(0));
    Theme::setDark(false);
    const int light = pixelsOf(pictureOf(chart, 1), chart.rect(), Theme::chartColor(0));
    EXPECT_GT(dark, 50);
    EXPECT_GT(light, 50);
}

} // namespace
} // namespace oakfen

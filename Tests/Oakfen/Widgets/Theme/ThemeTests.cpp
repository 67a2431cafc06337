#include "Oakfen/Widgets/Theme/Theme.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QPixmap>
#include <algorithm>
#include <cmath>

#include "Oakfen/AppState.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/ThemeColors.h"

namespace oakfen {
namespace {

double linear(double channel) {
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return (0.2126 * linear(color.redF())) + (0.7152 * linear(color.greenF())) +
           (0.0722 * linear(color.blueF()));
}

double contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

class ThemeTest : public ::testing::TestWithParam<bool> {
protected:
    [[nodiscard]] static QColor color(ThemeColor role) { return themeColor(role, GetParam()); }
};

TEST_P(ThemeTest, KeepsEveryTextColourReadableOnEverySurface) {
    constexpr double readable = 4.5;
    for (const ThemeColor surface :
         {ThemeColor::window, ThemeColor::surface, ThemeColor::surfaceRaised}) {
        for (const ThemeColor text :
             {ThemeColor::text, ThemeColor::secondaryText, ThemeColor::accent, ThemeColor::negative,
              ThemeColor::positive, ThemeColor::warning, ThemeColor::information}) {
            EXPECT_GE(contrast(color(surface), color(text)), readable)
                << "surface " << static_cast<int>(surface) << ", text " << static_cast<int>(text);
        }
    }
}

TEST_P(ThemeTest, KeepsFiguresReadableOnTheSelection) {
    for (const ThemeColor text : {ThemeColor::onSelection, ThemeColor::negative,
                                  ThemeColor::positive, ThemeColor::information}) {
        EXPECT_GE(contrast(color(ThemeColor::selection), color(text)), 4.5)
            << static_cast<int>(text);
    }
    EXPECT_GE(contrast(color(ThemeColor::accent), color(ThemeColor::onAccent)), 4.5);
}

TEST_P(ThemeTest, LeavesNoNameUnreplacedInTheStyleSheet) {
    EXPECT_FALSE(themeStyleSheet(GetParam()).contains(QLatin1Char('@')));
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, ThemeTest, ::testing::Bool());

TEST(Theme, TurnsDarkAndBack) {
    Theme::setDark(true);
    const QColor dark = Theme::color(ThemeColor::window);
    EXPECT_TRUE(Theme::isDark());
    Theme::setDark(false);
    EXPECT_GT(Theme::color(ThemeColor::window).lightness(), dark.lightness());
}

TEST(Theme, StartsTheChartColoursAgainAfterTheTwelfth) {
    EXPECT_EQ(Theme::chartColor(0), Theme::chartColor(12));
    EXPECT_NE(Theme::chartColor(0), Theme::chartColor(11));
}

TEST(Theme, RecoloursALabelWithTheTheme) {
    QLabel label;
    Theme::setText(label, TextStyle::body, ThemeColor::negative);
    label.ensurePolished();
    EXPECT_EQ(label.palette().color(QPalette::WindowText), themeColor(ThemeColor::negative, false));
    Theme::setDark(true);
    EXPECT_EQ(label.palette().color(QPalette::WindowText), themeColor(ThemeColor::negative, true));
    Theme::setDark(false);
}

bool hasDrawing(const QIcon& icon) {
    const QImage image = icon.pixmap(QSize(16, 16)).toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0) {
                return true;
            }
        }
    }
    return false;
}

TEST(SymbolIcon, HasAPictureForEveryScreen) {
    for (const SidebarItem& item : overviewItems()) {
        EXPECT_TRUE(hasDrawing(symbolIcon(symbolName(item.kind)))) << symbolName(item.kind);
    }
}

TEST(SymbolIcon, HasAPictureForEveryTypeOfAccount) {
    for (const AccountType type : allCases<AccountType>) {
        EXPECT_TRUE(hasDrawing(symbolIcon(symbolName(type)))) << symbolName(type);
    }
}

TEST(SymbolIcon, HasAPictureForEveryInvestmentAction) {
    for (const InvestmentAction action : allCases<InvestmentAction>) {
        EXPECT_TRUE(hasDrawing(symbolIcon(symbolName(action)))) << symbolName(action);
    }
}

TEST(SymbolIcon, IsPaintedInTheColourOfItsRole) {
    const QIcon icon = symbolIcon("checkmark.circle.fill", ThemeColor::positive);
    const QImage light = icon.pixmap(QSize(32, 32)).toImage();
    // Just beside the tick the disc is solid.
    EXPECT_EQ(light.pixelColor(6, 22), themeColor(ThemeColor::positive, false));
    Theme::setDark(true);
    const QImage dark = icon.pixmap(QSize(32, 32)).toImage();
    EXPECT_EQ(dark.pixelColor(6, 22), themeColor(ThemeColor::positive, true));
    Theme::setDark(false);
}

} // namespace
} // namespace oakfen

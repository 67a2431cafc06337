#include "Oakfen/Widgets/Components/Figures.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetricsF>

namespace oakfen {

TEST(Figures, AreAllAsWideAsTheWidestDigit) {
    const QFont font = QApplication::font();
    const qreal ones = figureWidth(font, QStringLiteral("$111.11"));
    const qreal eights = figureWidth(font, QStringLiteral("$888.88"));
    EXPECT_DOUBLE_EQ(ones, eights);
    EXPECT_GE(ones, QFontMetricsF(font).horizontalAdvance(QStringLiteral("$111.11")) - 0.01);
}

TEST(Figures, HaveNoWidthWithoutText) {
    EXPECT_DOUBLE_EQ(figureWidth(QApplication::font(), QString()), 0);
}

TEST(FittingFigures, AreDrawnSmallerWhereTheyHaveNoRoom) {
    const QFont font = Theme::font(TextStyle::figure);
    const QString text = QStringLiteral("$24,699,672.75");
    const qreal whole = figureWidth(font, text);
    EXPECT_EQ(fittingFigureFont(font, text, whole + 1), font);
    const QFont smaller = fittingFigureFont(font, text, whole * 0.8);
    EXPECT_LT(smaller.pointSizeF(), font.pointSizeF());
    EXPECT_LE(figureWidth(smaller, text), whole * 0.82);
}
} // namespace oakfen

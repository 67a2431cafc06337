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

} // namespace oakfen

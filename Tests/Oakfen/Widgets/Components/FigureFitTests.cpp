#include "Oakfen/Widgets/Components/FigureFit.h"

#include <gtest/gtest.h>

#include "Oakfen/Widgets/Components/FigureLine.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {
namespace {

const FigureTexts huge{QStringLiteral("-$999,999,999,999,999.00"), QStringLiteral("-$1000T")};

class FigureFit : public ::testing::Test {
protected:
    [[nodiscard]] qreal width(const QString& text) const { return figureWidth(font, text); }
    [[nodiscard]] TitledFigureLayout layOut(const QString& title, const QString& detail,
                                            qreal room) const {
        return layOutTitledFigure({font, title}, {font, detail}, font, {figure, figure}, room,
                                  room);
    }

    QFont font = Theme::font(TextStyle::body);
    QString figure = QStringLiteral("$11,023.13");
};

TEST_F(FigureFit, ShowsTheWholeAmountIfItFits) {
    EXPECT_EQ(fittingFigure(font, huge, width(huge.whole)), huge.whole);
}

TEST_F(FigureFit, ShowsFewCharactersWhereTheWholeAmountDoesNotFit) {
    EXPECT_EQ(fittingFigure(font, huge, width(huge.whole) - 1), huge.compact);
    EXPECT_EQ(fittingFigure(font, huge, width(huge.compact)), huge.compact);
}

TEST_F(FigureFit, ShowsDotsRatherThanSomeOfTheDigits) {
    EXPECT_EQ(fittingFigure(font, huge, width(huge.compact) - 1), QStringLiteral("…"));
}

TEST_F(FigureFit, LaysAShortTitleBesideItsFigure) {
    const TitledFigureLayout layout = layOut(QStringLiteral("TFSA"), {}, 200);
    EXPECT_EQ(layout.figure, figure);
    EXPECT_EQ(layout.figureLine, 0);
    EXPECT_EQ(layout.lines, 1);
}

TEST_F(FigureFit, LaysTheFigureBeneathATitleThatLeavesNoRoom) {
    const TitledFigureLayout layout = layOut(QStringLiteral("High-Interest Savings"), {}, 190);
    EXPECT_EQ(layout.figure, figure);
    EXPECT_EQ(layout.figureLine, 1);
    EXPECT_EQ(layout.lines, 2);
}

TEST_F(FigureFit, LaysTheFigureBesideTheDetailWhereThatIsShort) {
    const TitledFigureLayout layout =
        layOut(QStringLiteral("Everyday Rewards Visa"), QStringLiteral("14% used"), 190);
    EXPECT_EQ(layout.figureLine, 1);
    EXPECT_EQ(layout.lines, 2);
}

TEST_F(FigureFit, LaysTheFigureBeneathALongDetail) {
    const TitledFigureLayout layout = layOut(QStringLiteral("Everyday Rewards Visa"),
                                             QStringLiteral("14285714% of limit used"), 190);
    EXPECT_EQ(layout.figureLine, 2);
    EXPECT_EQ(layout.lines, 3);
}

TEST_F(FigureFit, NeedsOneLineForATitleWithoutAFigure) {
    const TitledFigureLayout layout =
        layOutTitledFigure({font, QStringLiteral("Bills")}, {}, font, {}, 190, 190);
    EXPECT_EQ(layout.figure, QString());
    EXPECT_EQ(layout.lines, 1);
}

class FigureLineTest : public ::testing::Test {
protected:
    FigureLineTest() {
        line.resize(218, 60);
        line.show();
    }

    FigureLine line{QStringLiteral("Net Worth"), TextStyle::body, TextStyle::bodyStrong,
                    ThemeColor::text};
    [[nodiscard]] QString shown() const { return qt(line.parts().amount->money().text); }
};

TEST_F(FigureLineTest, GivesAnAmountALineOfItsOwnWhereItHasNoRoomBesideItsLabel) {
    line.setFigure({QStringLiteral("$1.00"), QStringLiteral("$1")}, TextTone::primary);
    const int height = line.heightForWidth(218);
    EXPECT_EQ(shown(), QStringLiteral("$1.00"));
    line.setFigure(huge, TextTone::negative);
    line.resize(218, line.heightForWidth(218));
    EXPECT_EQ(line.height(), 2 * height);
    EXPECT_EQ(shown(), huge.whole);
    EXPECT_EQ(line.parts().amount->y(), height);
    EXPECT_EQ(line.parts().amount->geometry().right(), line.rect().right());
    EXPECT_EQ(line.toolTip(), QString());
}

TEST_F(FigureLineTest, TellsTheWholeAmountOnHoverAndAloudWhereItHasNoRoomAtAll) {
    line.setFigure(huge, TextTone::negative);
    line.resize(120, 60);
    EXPECT_EQ(shown(), huge.compact);
    EXPECT_EQ(line.toolTip(), plainToolTip(huge.whole));
    EXPECT_EQ(line.parts().label->accessibleName(), QStringLiteral("Net Worth, ") + huge.whole);
    line.resize(800, 60);
    EXPECT_EQ(shown(), huge.whole);
    EXPECT_EQ(line.toolTip(), QString());
}

} // namespace
} // namespace oakfen

#include <QImage>
#include <QScrollBar>

#include "Oakfen/Widgets/Components/FigureLine.h"
#include "Oakfen/Widgets/Components/Figures.h"
#include "Oakfen/Widgets/Shell/SidebarDelegate.h"
#include "Oakfen/Widgets/Shell/SidebarWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "Tests/Oakfen/Widgets/WindowFixture.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::makeAccount;
using testing::settle;

class SidebarFigures : public testing::WindowTest {
protected:
    Account addWith(const std::string& name, const char* balance,
                    AccountType type = AccountType::chequing) {
        Account account = makeAccount(name, type);
        account.openingBalance = amount(balance);
        add(account);
        return account;
    }
    [[nodiscard]] int heightOf(const char* title) const {
        return sidebar()->visualItemRect(line(QString::fromUtf8(title))).height();
    }
    [[nodiscard]] QWidget* column() const { return window->findChild<SidebarWidget*>(); }
    /// How far the ink reaches at the right in that place of the column.
    [[nodiscard]] int rightmostInk(const QRect& place) const {
        const QImage picture = column()->grab(place).toImage();
        const QColor ground = picture.pixelColor(0, 0);
        for (int x = picture.width() - 1; x >= 0; --x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (picture.pixelColor(x, y) != ground) {
                    return place.left() + x;
                }
            }
        }
        return -1;
    }
    /// That of the line's right half.
    [[nodiscard]] int amountEnd(const char* title) const {
        const QRect row = sidebar()->visualItemRect(line(QString::fromUtf8(title)));
        const QPoint corner = sidebar()->viewport()->mapTo(column(), row.topLeft());
        const int half = row.width() / 2;
        return rightmostInk({corner.x() + half, corner.y() + 1, half, row.height() - 2});
    }
    [[nodiscard]] int netWorthEnd() const {
        const auto* figure =
            column()->findChild<QFrame*>(QStringLiteral("SidebarFooter"))->findChild<FigureLine*>();
        const QPoint corner = figure->mapTo(column(), QPoint(figure->width() / 2, 0));
        return rightmostInk({corner, QSize(column()->width() - corner.x(), figure->height())});
    }
};

TEST_F(SidebarFigures, GiveALongNameTheWholeLineAndTheAmountOneOfItsOwn) {
    addWith("TFSA", "11023.13");
    addWith("High-Interest Savings", "22286.92", AccountType::savings);
    EXPECT_GT(heightOf("High-Interest Savings"), heightOf("TFSA"));
    // Wide enough for the name, at the width that the column has at first.
    constexpr int besideName = 58;
    EXPECT_LE(QFontMetrics(Theme::font(TextStyle::body))
                  .horizontalAdvance(QStringLiteral("High-Interest Savings")),
              sidebar()->width() - besideName);
}

TEST_F(SidebarFigures, StandBesideTheHeadingOfTheirGroupAlsoWhileItIsFolded) {
    addWith("Everyday", "1000.10");
    addWith("Spare", "0.90");
    const auto total = [&] {
        return line(QStringLiteral("Banking"))->data(0, figureRole).toString();
    };
    EXPECT_EQ(total(), QStringLiteral("$1,001.00"));
    const int end = amountEnd("Banking");
    EXPECT_NEAR(end, amountEnd("Spare"), 1);
    click(line(QStringLiteral("Banking")));
    EXPECT_EQ(total(), QStringLiteral("$1,001.00"));
    EXPECT_EQ(amountEnd("Banking"), end);
    EXPECT_EQ(line(QStringLiteral("Banking"))->data(0, Qt::AccessibleTextRole).toString(),
              QStringLiteral("Banking, $1,001.00"));
}

TEST_F(SidebarFigures, EndWhereNetWorthEnds) {
    addWith("Everyday", "1500.50");
    EXPECT_NEAR(netWorthEnd(), amountEnd("Everyday"), 1);
}

TEST_F(SidebarFigures, StayWhereTheyAreWhenTheListBecomesTooLongForItsPlace) {
    addWith("Everyday", "1500.50");
    const int before = amountEnd("Everyday");
    const int banking = amountEnd("Banking");
    test->store->mutate("Many", [](Library& library) {
        for (int number = 0; number < 60; ++number) {
            upsert(library, makeAccount("Zone " + std::to_string(number), AccountType::loan));
        }
    });
    settle();
    ASSERT_TRUE(sidebar()->verticalScrollBar()->isVisible());
    EXPECT_EQ(amountEnd("Everyday"), before);
    EXPECT_NEAR(amountEnd("Banking"), banking, 1); // another total
}

TEST_F(SidebarFigures, LoseNoDigitHoweverLargeTheyAre) {
    addWith("Rupiah in the Bank", "-999999999999999");
    addWith("TFSA", "0");
    // A line of its own is enough for it.
    EXPECT_GT(heightOf("Rupiah in the Bank"), heightOf("TFSA"));
    const auto* figure = column()->findChild<FigureLine*>();
    EXPECT_EQ(figure->parts().amount->money().text, "-$999,999,999,999,999.00");
    EXPECT_GE(figure->height(), 2 * QFontMetrics(Theme::font(TextStyle::bodyStrong)).height() - 4);
    EXPECT_LE(netWorthEnd(), column()->width() - 16);
    const int left = sidebar()->visualItemRect(line(QStringLiteral("Rupiah in the Bank"))).left();
    EXPECT_GE(left, 0);
}

TEST_F(SidebarFigures, AreToldOnOneLineOnHover) {
    addWith("Everyday <b>Chequing</b>", "11023.13");
    EXPECT_EQ(line(QStringLiteral("Everyday <b>Chequing</b>"))->toolTip(0),
              QStringLiteral("<p style='white-space:nowrap'>Everyday &lt;b&gt;Chequing&lt;/b&gt;, "
                             "$11,023.13</p>"));
    addWith(std::string(300, 'x'), "1");
    EXPECT_FALSE(
        line(QString(300, QLatin1Char('x')))->toolTip(0).contains(QStringLiteral("nowrap")));
}

} // namespace
} // namespace oakfen

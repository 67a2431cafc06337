#include "Oakfen/Widgets/Register/RegisterNoticeWidget.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "Tests/Oakfen/Widgets/Register/RegisterWindowFixture.h"

namespace oakfen {

using RegisterNotice = testing::RegisterWindow;

TEST_F(RegisterNotice, PointsOutASavedEntryThatTheSearchHidesAndShowsIt) {
    QPushButton* show = widget->notice()->showButton();
    EXPECT_FALSE(widget->notice()->isVisible());
    QTest::keyClicks(widget->searchField(), QStringLiteral("shop"));
    test.appState->transactionSaved.notify(rent.id);
    EXPECT_TRUE(widget->notice()->isVisible());
    EXPECT_EQ(payees(), "Shop");
    QTest::mouseClick(show, Qt::LeftButton);
    EXPECT_FALSE(widget->notice()->isVisible());
    EXPECT_EQ(widget->searchField()->text(), QString());
    EXPECT_EQ(payees(), "Rent|Pay|Shop|Card Company");
    EXPECT_EQ(selection(), UUIDSet{rent.id});
    EXPECT_EQ(widget->table()->currentIndex().row(), 0);
}

TEST_F(RegisterNotice, PointsOutASavedEntryWhereNothingElseIsShown) {
    auto* filter = widget->findChild<QComboBox*>();
    filter->setCurrentIndex(static_cast<int>(RegisterFilter::thisMonth));
    Q_EMIT filter->activated(filter->currentIndex());
    test.clock.set(testing::day(2026, 7, 1));
    QTest::keyClicks(widget->searchField(), QStringLiteral("r"));
    ASSERT_FALSE(widget->table()->isVisible());
    test.appState->transactionSaved.notify(shop.id);
    QTest::mouseClick(widget->notice()->showButton(), Qt::LeftButton);
    EXPECT_TRUE(widget->table()->isVisible());
    EXPECT_EQ(filter->currentIndex(), static_cast<int>(RegisterFilter::all));
    EXPECT_EQ(selection(), UUIDSet{shop.id});
}

TEST_F(RegisterNotice, DropsTheNoticeWithTheNextLetterOfTheSearch) {
    QTest::keyClicks(widget->searchField(), QStringLiteral("shop"));
    test.appState->transactionSaved.notify(rent.id);
    QTest::keyClick(widget->searchField(), Qt::Key_Backspace);
    EXPECT_FALSE(widget->notice()->isVisible());
}

} // namespace oakfen

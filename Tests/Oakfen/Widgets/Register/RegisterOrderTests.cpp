#include <QHeaderView>
#include <QMouseEvent>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleOptionHeader>
#include <QToolButton>

#include "Oakfen/Widgets/Components/LedgerHeader.h"
#include "Tests/Oakfen/Widgets/Register/RegisterWindowFixture.h"

namespace oakfen {
namespace {

/// The titles above the register's columns, by which it is sorted.
class RegisterOrder : public testing::RegisterWindow {
protected:
    [[nodiscard]] LedgerHeader* header() const {
        return qobject_cast<LedgerHeader*>(widget->table()->horizontalHeader());
    }
    [[nodiscard]] QPoint onTitle(std::string_view name) const {
        return {header()->sectionViewportPosition(column(name)) + 20, 10};
    }
    [[nodiscard]] QPoint rightEdge(std::string_view name) const {
        const int section = column(name);
        return {header()->sectionViewportPosition(section) + header()->sectionSize(section) - 1,
                10};
    }
    void drag(const QPoint& from, const QPoint& to) const {
        QWidget* target = header()->viewport();
        QTest::mousePress(target, Qt::LeftButton, {}, from);
        for (const QPoint& place : {from + (to - from) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, place, target->mapToGlobal(place), Qt::NoButton,
                             Qt::LeftButton, {});
            QApplication::sendEvent(target, &move);
        }
        QTest::mouseRelease(target, Qt::LeftButton, {}, to);
    }
};

TEST_F(RegisterOrder, IsChosenWithAClickOnAHeaderAndTurnedRoundWithTheNext) {
    const auto clickHeader = [&](std::string_view name) {
        QTest::mouseClick(header()->viewport(), Qt::LeftButton, {}, onTitle(name));
    };
    clickHeader("payee");
    EXPECT_EQ(payees(), "Card Company|Pay|Rent|Shop");
    EXPECT_EQ(header()->sortIndicatorOrder(), Qt::AscendingOrder);
    clickHeader("payee");
    EXPECT_EQ(payees(), "Shop|Rent|Pay|Card Company");
    EXPECT_EQ(header()->sortIndicatorOrder(), Qt::DescendingOrder);
    clickHeader("tags");
    EXPECT_EQ(header()->sortIndicatorSection(), column("payee"));
}

TEST_F(RegisterOrder, StaysAsItIsWhileOneDrags) {
    drag(onTitle("payee"), onTitle("payee") + QPoint(60, 0));
    EXPECT_EQ(payees(), "Rent|Pay|Shop|Card Company");
    EXPECT_EQ(header()->sortIndicatorSection(), column("date"));
    drag(rightEdge("payee"), rightEdge("payee") + QPoint(-40, 0));
    EXPECT_EQ(payees(), "Rent|Pay|Shop|Card Company");
    QTest::mouseClick(header()->viewport(), Qt::LeftButton, {}, onTitle("payee"));
    EXPECT_EQ(payees(), "Card Company|Pay|Rent|Shop");
}

TEST_F(RegisterOrder, EveryEdgeCanBeDragged) {
    for (const char* name : {"date", "number", "payee", "category", "tags", "payment"}) {
        const int before = widget->table()->columnWidth(column(name));
        drag(rightEdge(name), rightEdge(name) + QPoint(30, 0));
        EXPECT_EQ(widget->table()->columnWidth(column(name)), before + 30) << name;
    }
    const int payee = widget->table()->columnWidth(column("payee"));
    const int category = widget->table()->columnWidth(column("category"));
    drag(rightEdge("payee"), rightEdge("payee") + QPoint(-50, 0));
    EXPECT_EQ(widget->table()->columnWidth(column("payee")), payee - 50);
    EXPECT_EQ(widget->table()->columnWidth(column("category")), category + 50);
}

TEST_F(RegisterOrder, ADoubleClickOnAnEdgeFitsTheColumn) {
    const int category = widget->table()->columnWidth(column("category"));
    QTest::mouseDClick(header()->viewport(), Qt::LeftButton, {}, rightEdge("category"));
    EXPECT_LT(widget->table()->columnWidth(column("category")), category);
    test.store->mutate("Edit", [this](Library& library) {
        Transaction changed = shop;
        changed.payee = std::string(60, 'W');
        upsert(library, changed);
    });
    QTest::mouseDClick(header()->viewport(), Qt::LeftButton, {}, rightEdge("payee"));
    const int least =
        widget->table()->fontMetrics().horizontalAdvance(QString(20, QLatin1Char('W')));
    EXPECT_GT(widget->table()->columnWidth(column("payee")), least);
    EXPECT_EQ(payees().substr(0, 8), "Rent|Pay");
}

TEST_F(RegisterOrder, IsChosenByKeyboard) {
    EXPECT_TRUE((header()->focusPolicy() & Qt::TabFocus) != 0);
    header()->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(header()->currentSection(), column("date"));
    QTest::keyClick(header(), Qt::Key_Space);
    EXPECT_EQ(payees(), "Card Company|Shop|Pay|Rent");
    QTest::keyClick(header(), Qt::Key_Right);
    QTest::keyClick(header(), Qt::Key_Right);
    EXPECT_EQ(header()->accessibleDescription(), QStringLiteral("Payee"));
    QTest::keyClick(header(), Qt::Key_Return);
    EXPECT_EQ(payees(), "Card Company|Pay|Rent|Shop");
    QTest::keyClick(header(), Qt::Key_End);
    EXPECT_EQ(header()->currentSection(), column("balance"));
}

TEST_F(RegisterOrder, IsChosenFromAMenuOfTheHeader) {
    const auto open = [this] {
        Q_EMIT header()->customContextMenuRequested(QPoint(5, 5));
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    };
    const auto choose = [&](const char* title) {
        QMenu* menu = open();
        action(*menu, title)->trigger();
        menu->close();
    };
    QMenu* menu = open();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(titles(*menu),
              (std::vector<std::string>{"Cleared", "Date", "Num", "Payee", "Category", "Payment",
                                        "Deposit", "Balance", "-", "Ascending", "Descending"}));
    EXPECT_TRUE(action(*menu, "Date")->isChecked());
    EXPECT_TRUE(action(*menu, "Descending")->isChecked());
    EXPECT_FALSE(action(*menu, "Ascending")->isChecked());
    menu->close();
    choose("Payee");
    EXPECT_EQ(payees(), "Shop|Rent|Pay|Card Company");
    choose("Ascending");
    EXPECT_EQ(payees(), "Card Company|Pay|Rent|Shop");
    EXPECT_EQ(header()->sortIndicatorSection(), column("payee"));
}

TEST_F(RegisterOrder, HasNoControlBesideTheHeaders) {
    for (const QToolButton* each : widget->findChildren<QToolButton*>()) {
        EXPECT_FALSE(each->text().startsWith(QStringLiteral("Sort")));
    }
}

/// Notes which way the arrow points.
class ArrowStyle final : public QProxyStyle {
public:
    using Arrow = QStyleOptionHeader::SortIndicator;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* of) const override {
        if (element == PE_IndicatorHeaderArrow) {
            arrow = qstyleoption_cast<const QStyleOptionHeader*>(option)->sortIndicator;
        }
        QProxyStyle::drawPrimitive(element, option, painter, of);
    }

    // A style draws without changing.
    mutable Arrow arrow = QStyleOptionHeader::None;
};

TEST_F(RegisterOrder, PointsDownWhereTheNewestComesFirst) {
    ArrowStyle style;
    header()->setStyle(&style);
    header()->grab();
    EXPECT_EQ(style.arrow, QStyleOptionHeader::SortDown);
    widget->view().sortBy("date");
    header()->grab();
    EXPECT_EQ(style.arrow, QStyleOptionHeader::SortUp);
    header()->setStyle(nullptr);
}

} // namespace
} // namespace oakfen

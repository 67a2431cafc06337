#include "Oakfen/Widgets/RegisterModel.h"

#include "Oakfen/Widgets/Components/LedgerDelegate.h"
#include "OakfenCore/Support/Formatting.h"

#include "Tests/Oakfen/Widgets/RegisterWindowFixture.h"

namespace oakfen {

using RegisterCells = testing::RegisterWindow;

TEST_F(RegisterCells, ShowsTheRowsWithTheirFigures) {
    EXPECT_EQ(payees(), "Rent|Pay|Shop|Card Company");
    EXPECT_EQ(cell(0, RegisterColumn::payment), "$1,200.00");
    EXPECT_EQ(cell(0, RegisterColumn::deposit), "");
    EXPECT_EQ(cell(1, RegisterColumn::deposit), "$1,000.00");
    EXPECT_EQ(cell(0, RegisterColumn::balance), "$260.00");
    EXPECT_EQ(cell(2, RegisterColumn::category), "Food");
    EXPECT_EQ(cell(0, RegisterColumn::date), numericDateText(rent.date, Calendar::utc()));
}

TEST_F(RegisterCells, TonesWhatMattersInARow) {
    const auto tone = [this](int row, RegisterColumn column) {
        return static_cast<TextTone>(index(row, column).data(LedgerDelegate::ToneRole).toInt());
    };
    EXPECT_EQ(tone(0, RegisterColumn::category), TextTone::warning);
    EXPECT_EQ(tone(2, RegisterColumn::category), TextTone::primary);
    EXPECT_EQ(tone(3, RegisterColumn::category), TextTone::information);
    EXPECT_EQ(tone(1, RegisterColumn::deposit), TextTone::positive);
    EXPECT_EQ(tone(0, RegisterColumn::payment), TextTone::primary);
    EXPECT_EQ(tone(0, RegisterColumn::tags), TextTone::secondary);
    EXPECT_EQ(tone(0, RegisterColumn::balance), TextTone::primary);
}

TEST_F(RegisterCells, TonesABalanceBelowZero) {
    open(card.id);
    test.store->mutate("Edit", [this](Library& library) {
        upsert(library, testing::makeTransaction(card.id, testing::day(2026, 3, 1), "Trip", "-60"));
    });
    EXPECT_EQ(cell(0, RegisterColumn::balance), "-$35.00");
    EXPECT_EQ(index(0, RegisterColumn::balance).data(LedgerDelegate::ToneRole).toInt(),
              static_cast<int>(TextTone::negative));
}

TEST_F(RegisterCells, PutsTheMemoAfterThePayee) {
    test.store->mutate("Edit", [this](Library& library) {
        Transaction changed = shop;
        changed.memo = "Milk & bread";
        upsert(library, changed);
    });
    EXPECT_EQ(utf8(index(2, RegisterColumn::payee).data(LedgerDelegate::DetailRole).toString()),
              "Milk & bread");
    EXPECT_EQ(index(0, RegisterColumn::payee).data(LedgerDelegate::DetailRole).toString(),
              QString());
    EXPECT_EQ(utf8(index(2, RegisterColumn::payee).data(Qt::ToolTipRole).toString()),
              "<qt>Milk &amp; bread</qt>");
}

TEST_F(RegisterCells, DrawsAPayeeWithLineEndsOnOneLine) {
    test.store->mutate("Edit", [this](Library& library) {
        Transaction changed = shop;
        changed.payee = "<b>Corner</b>\r\nShop";
        upsert(library, changed);
    });
    EXPECT_EQ(cell(2, RegisterColumn::payee), "<b>Corner</b> Shop");
    EXPECT_EQ(stored(shop.id).payee, "<b>Corner</b>\r\nShop");
}

TEST_F(RegisterCells, ShowsABanksMarkupInATooltipAsText) {
    test.store->mutate("Edit", [this](Library& library) {
        Transaction changed = shop;
        changed.memo = "<img src=x>";
        upsert(library, changed);
    });
    EXPECT_EQ(index(2, RegisterColumn::payee).data(Qt::ToolTipRole).toString(),
              QStringLiteral("<qt>&lt;img src=x&gt;</qt>"));
}

} // namespace oakfen

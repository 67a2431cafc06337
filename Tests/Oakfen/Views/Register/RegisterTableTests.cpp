#include "Oakfen/Views/Register/RegisterTable.h"

#include "OakfenCore/Support/Text/Formatting.h"
#include "Tests/Oakfen/Views/Register/RegisterFixture.h"
#include "Tests/Support/LocaleForTest.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::LocaleForTest;

/// The card company's entry is a transfer and reconciled; the shop's has a category.
class RegisterCells : public testing::RegisterFixture {
protected:
    [[nodiscard]] Cell cell(std::size_t row, std::string_view column) const {
        const auto content = view.content();
        return content->table->cell(row, columnNamed(*content->table, column).value());
    }
    void edit(Transaction entry) {
        test.store->mutate("Edit", [&](Library& library) { upsert(library, entry); });
    }

    const LocaleForTest locale{"en_CA"};
};

TEST_F(RegisterCells, ShowTheFiguresOfTheEntry) {
    EXPECT_EQ(shownPayees(), "Rent|Pay|Shop|Card Company");
    EXPECT_EQ(cell(0, "payment"), Cell{.text = "$1,200.00"});
    EXPECT_EQ(cell(0, "deposit"), Cell());
    EXPECT_EQ(cell(1, "payment"), Cell());
    EXPECT_EQ(cell(0, "balance"), Cell{.text = "$260.00"});
    EXPECT_EQ(cell(0, "date"), Cell{.text = numericDateText(rent.date, Calendar::utc())});
}

TEST_F(RegisterCells, ToneWhatMattersInARow) {
    EXPECT_EQ(cell(0, "category"), (Cell{.text = "Uncategorized", .tone = TextTone::warning}));
    EXPECT_EQ(cell(2, "category"), (Cell{.text = "Food"}));
    EXPECT_EQ(cell(3, "category"), (Cell{.text = "[Card]", .tone = TextTone::information}));
    EXPECT_EQ(cell(1, "deposit"), (Cell{.text = "$1,000.00", .tone = TextTone::positive}));
    EXPECT_EQ(cell(0, "tags").tone, TextTone::secondary);
}

TEST_F(RegisterCells, ToneABalanceBelowZero) {
    edit(testing::makeTransaction(everyday.id, day(2026, 4, 1), "Trip", "-300"));
    EXPECT_EQ(cell(0, "balance"), (Cell{.text = "-$40.00", .tone = TextTone::negative}));
}

TEST_F(RegisterCells, ShowTheStateAsAMarkThatSaysItsWord) {
    EXPECT_EQ(cell(0, "cleared"),
              (Cell{.symbolName = "circle", .spoken = "Uncleared", .tone = TextTone::secondary}));
    EXPECT_EQ(cell(3, "cleared"), (Cell{.symbolName = "checkmark.circle.fill",
                                        .spoken = "Reconciled",
                                        .tone = TextTone::positive}));
}

TEST_F(RegisterCells, PutTheMemoAfterThePayee) {
    shop.memo = "Milk &\nbread";
    edit(shop);
    EXPECT_EQ(cell(2, "payee"),
              (Cell{.text = "Shop", .detail = "Milk & bread", .toolTip = "Milk &\nbread"}));
    EXPECT_EQ(cell(0, "payee"), Cell{.text = "Rent"});
}

TEST_F(RegisterCells, ShowAPayeeWithLineEndsOnOneLine) {
    shop.payee = "<b>Corner</b>\r\nShop";
    edit(shop);
    EXPECT_EQ(cell(2, "payee").text, "<b>Corner</b> Shop");
    EXPECT_EQ(stored(shop.id).payee, "<b>Corner</b>\r\nShop");
}

TEST_F(RegisterCells, PrintTheStateAsItsWord) {
    const std::string page = printedPage(*view.content()->table, "Everyday");
    EXPECT_NE(page.find("<td>Reconciled</td>"), std::string::npos);
    EXPECT_NE(page.find("<th align=\"left\">Cleared</th>"), std::string::npos);
}

} // namespace
} // namespace oakfen

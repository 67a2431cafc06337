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
    EXPECT_EQ(cell(1, "date"), Cell{.text = numericDateText(pay.date, Calendar::utc())});
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

TEST_F(RegisterCells, SayThatAnEntryIsStillToCome) {
    EXPECT_EQ(cell(0, "date"), (Cell{.text = numericDateText(rent.date, Calendar::utc()),
                                     .description = "Upcoming"}));
    EXPECT_EQ(cell(1, "date").description, "");
    test.clock.set(rent.date);
    test.store->refreshIndex();
    EXPECT_EQ(cell(0, "date").description, "");
}

TEST_F(RegisterCells, DrawRunsOfBlanksAsOneAndKeepThemInTheLedger) {
    shop.payee = "WELLNESS CLINIC          ANYTOWN";
    shop.memo = "card\t  12";
    edit(shop);
    EXPECT_EQ(cell(2, "payee").text, "WELLNESS CLINIC ANYTOWN");
    EXPECT_EQ(cell(2, "payee").detail, "card 12");
    EXPECT_EQ(view.content()->table->plainText(2, 3), "WELLNESS CLINIC          ANYTOWN");
    EXPECT_EQ(view.content()->table->typedText(2, 3), "WELLNESS CLINIC          ANYTOWN");
    EXPECT_EQ(stored(shop.id).payee, "WELLNESS CLINIC          ANYTOWN");
}

TEST_F(RegisterCells, TellWhichColumnsHoldNothingInTheRowsThatAreShown) {
    const auto isEmpty = [this](std::string_view column) {
        const auto content = view.content();
        return content->table->isEmpty(columnNamed(*content->table, column).value());
    };
    EXPECT_TRUE(isEmpty("number"));
    EXPECT_TRUE(isEmpty("tags"));
    EXPECT_FALSE(isEmpty("payee"));
    shop.checkNumber = "101";
    edit(shop);
    pay.tags = {"work"};
    edit(pay);
    EXPECT_FALSE(isEmpty("number"));
    EXPECT_FALSE(isEmpty("tags"));
    view.setFilter(RegisterFilter::thisMonth);
    EXPECT_TRUE(isEmpty("number"));
    EXPECT_FALSE(isEmpty("tags"));
    view.setFilter(RegisterFilter::all);
    test.undoManager->undo();
    EXPECT_FALSE(isEmpty("number"));
    EXPECT_TRUE(isEmpty("tags"));
}

TEST_F(RegisterCells, FindTheFirstRowPastTodayInBothOrders) {
    EXPECT_EQ(view.content()->rowPastToday, 1U);
    view.sortBy("date");
    EXPECT_EQ(view.content()->rowPastToday, 3U);
    view.sortBy("payee");
    EXPECT_EQ(view.content()->rowPastToday, std::nullopt);
}

TEST_F(RegisterCells, FindNoRowPastTodayWhereAllLieOnOneSide) {
    view.setFilter(RegisterFilter::uncleared);
    EXPECT_EQ(view.content()->rowPastToday, 1U);
    view.setSearchText("rent");
    EXPECT_EQ(view.content()->rowPastToday, std::nullopt);
    view.setSearchText("pay");
    EXPECT_EQ(view.content()->rowPastToday, std::nullopt);
    view.setSearchText("nobody");
    EXPECT_EQ(view.content()->rowPastToday, std::nullopt);
}

} // namespace
} // namespace oakfen

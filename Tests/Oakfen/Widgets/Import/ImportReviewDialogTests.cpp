#include "Oakfen/Widgets/Import/ImportReviewDialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "Oakfen/Widgets/Components/HintRow.h"
#include "Oakfen/Widgets/Components/LedgerTable.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/Theme.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::day;
using testing::makeAccount;
using testing::TestEnvironment;

enum Column { Included, Day, Payee, Category, Amount, Mark };

/// A statement of three lines, of which the account has the second.
class ImportReviewSheet : public ::testing::Test {
protected:
    ImportReviewSheet() {
        test_.store->mutate("Add", [this](Library& library) {
            library.accounts.push_back(everyday_);
            library.accounts.push_back(savings_);
            upsert(library,
                   testing::makeTransaction(everyday_.id, day(2026, 3, 4), "Shop & Co", "-40"));
        });
        test_.undoManager->removeAllActions();
    }

    void show() {
        dialog_ = std::make_unique<ImportReviewDialog>(*test_, session());
        dialog_->show();
        dialog_->activateWindow();
        QApplication::processEvents();
    }

    [[nodiscard]] std::shared_ptr<const ImportSession> session() const {
        const auto line = [](std::string payee, std::string_view value, int dayOfMonth) {
            return ImportedTransaction{.id = UUID::random(),
                                       .date = day(2026, 3, dayOfMonth, 0),
                                       .payee = std::move(payee),
                                       .amount = amount(value)};
        };
        auto session =
            ImportSession{.id = UUID::random(),
                          .fileName = fileName_,
                          .items = {line("Bakery", "-4.50", 3), line("Shop & Co", "-40", 5),
                                    line("Pay\r\nday", "1000", 6)},
                          .accountID = everyday_.id};
        session.items[1].memo = "say <b>\"hi\"</b>";
        session.items[2].memo = "Fees & more";
        session.items[0].categoryName = category_;
        return std::make_shared<const ImportSession>(std::move(session));
    }

    [[nodiscard]] std::string cell(int row, int column, int role = Qt::DisplayRole) const {
        return utf8(table()->model()->index(row, column).data(role).toString());
    }
    [[nodiscard]] LedgerTable* table() const { return dialog_->table(); }
    [[nodiscard]] AccountPicker* account() const { return dialog_->accountPicker(); }
    [[nodiscard]] const ImportReviewView& view() const { return dialog_->view(); }
    [[nodiscard]] bool isIncluded(std::size_t line) const {
        return view().included().contains(view().items()[line].id);
    }
    [[nodiscard]] QString importTitle() const { return dialog_->primaryButton()->text(); }
    [[nodiscard]] std::size_t entries() const {
        return test_.index().transactions(everyday_.id).size();
    }

    std::string fileName_ = "march.csv";
    std::optional<std::string> category_;
    Account everyday_ = makeAccount("Everyday");
    Account savings_ = makeAccount("Savings", AccountType::savings);
    TestEnvironment test_;
    std::unique_ptr<ImportReviewDialog> dialog_;
};

TEST_F(ImportReviewSheet, ShowsTheLines) {
    show();
    EXPECT_EQ(dialog_->windowTitle(), QStringLiteral("Import march.csv"));
    EXPECT_EQ(cell(0, Column::Day), abbreviatedDateText(day(2026, 3, 3), Calendar::utc()));
    EXPECT_EQ(cell(0, Column::Amount), "-$4.50");
    EXPECT_EQ(cell(0, Column::Mark), "");
    EXPECT_EQ(cell(1, Column::Mark), "Duplicate");
    EXPECT_EQ(cell(2, Column::Payee), "Pay day");
}

TEST_F(ImportReviewSheet, IsTickedWithTheMouseAndImported) {
    show();
    const QModelIndex tick = table()->model()->index(0, Column::Included);
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, table()->visualRect(tick).center());
    EXPECT_FALSE(isIncluded(0));
    QTest::mouseClick(dialog_->primaryButton(), Qt::LeftButton);
    EXPECT_FALSE(dialog_->isVisible());
    ASSERT_EQ(entries(), 2U);
    EXPECT_EQ(test_.library().transactions.back().payee, "Pay\r\nday");
    EXPECT_EQ(test_.undoManager->undoActionName(), "Import Transactions");
}

TEST_F(ImportReviewSheet, IsTickedWithTheSpaceBar) {
    show();
    table()->selectAll();
    table()->selectionModel()->setCurrentIndex(table()->model()->index(1, Column::Payee),
                                               QItemSelectionModel::NoUpdate);
    QTest::keyClick(table(), Qt::Key_Space);
    EXPECT_TRUE(view().included().empty());
    EXPECT_FALSE(dialog_->primaryButton()->isEnabled());
    QTest::keyClick(table(), Qt::Key_Space);
    EXPECT_EQ(view().included().size(), 3U);
    EXPECT_TRUE(dialog_->primaryButton()->isEnabled());
}

TEST_F(ImportReviewSheet, TicksItsFirstLineWithTheSpaceBarAtOnce) {
    show();
    ASSERT_EQ(QApplication::focusWidget(), table());
    QTest::keyClick(table(), Qt::Key_Space);
    EXPECT_FALSE(isIncluded(0));
    QTest::keyClick(table(), Qt::Key_Down);
    QTest::keyClick(table(), Qt::Key_Space);
    EXPECT_FALSE(isIncluded(1));
    EXPECT_TRUE(isIncluded(2));
}

TEST_F(ImportReviewSheet, ImportsWithReturn) {
    show();
    QTest::keyClick(table(), Qt::Key_Return);
    EXPECT_EQ(dialog_->result(), QDialog::Accepted);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(entries(), 3U);
}

TEST_F(ImportReviewSheet, ImportsNothingWithEscape) {
    show();
    QTest::keyClick(table(), Qt::Key_Escape);
    EXPECT_EQ(dialog_->result(), QDialog::Rejected);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(entries(), 1U);
    EXPECT_FALSE(test_.undoManager->canUndo());
}

TEST_F(ImportReviewSheet, SaysOnHoverWhichEntryADuplicateRepeats) {
    show();
    const std::string match =
        "Already in this account: " + abbreviatedDateText(day(2026, 3, 4), Calendar::utc()) +
        ", Shop & Co, -$40.00";
    const std::string shown = utf8(qt(match).toHtmlEscaped()) + "</qt>";
    const std::string memo = "<qt>say &lt;b&gt;&quot;hi&quot;&lt;/b&gt;<br>";
    for (const int column : {Column::Day, Column::Payee, Column::Mark}) {
        EXPECT_EQ(cell(1, column, Qt::ToolTipRole), memo + shown);
        EXPECT_EQ(cell(1, column, Qt::AccessibleDescriptionRole), match);
    }
    EXPECT_EQ(cell(0, Column::Mark, Qt::ToolTipRole), "");
    EXPECT_EQ(cell(0, Column::Mark, Qt::AccessibleDescriptionRole), "");
}

TEST_F(ImportReviewSheet, ShowsAMemoOnHoverAsItStands) {
    show();
    EXPECT_EQ(cell(2, Column::Payee, Qt::ToolTipRole), "<qt>Fees &amp; more</qt>");
}

TEST_F(ImportReviewSheet, SaysWhatBecomesOfEachLine) {
    show();
    dialog_->view().setIncluded({view().items()[0].id}, false);
    for (const int role : {Qt::ToolTipRole, Qt::AccessibleTextRole}) {
        EXPECT_EQ(cell(0, Column::Included, role), "Left out");
        EXPECT_EQ(cell(1, Column::Included, role), "Left out: already in this account");
        EXPECT_EQ(cell(2, Column::Included, role), "Will be imported");
    }
}

TEST_F(ImportReviewSheet, MarksDuplicatesOfTheChosenAccount) {
    show();
    EXPECT_EQ(cell(1, Column::Mark), "Duplicate");
    dialog_->accountPicker()->choose(savings_.id);
    dialog_->accountPicker()->chosen();
    EXPECT_EQ(cell(1, Column::Mark), "");
    EXPECT_EQ(view().accountID(), savings_.id);
}

TEST_F(ImportReviewSheet, SaysOnItsButtonHowManyLinesComeIn) {
    show();
    EXPECT_EQ(importTitle(), QStringLiteral("Import 2"));
    QTest::mouseClick(dialog_->tickNoneButton(), Qt::LeftButton);
    EXPECT_EQ(importTitle(), QStringLiteral("Import"));
    EXPECT_FALSE(dialog_->primaryButton()->isEnabled());
    EXPECT_FALSE(dialog_->tickNoneButton()->isEnabled());
    QTest::mouseClick(dialog_->tickAllButton(), Qt::LeftButton);
    EXPECT_EQ(importTitle(), QStringLiteral("Import 2"));
    EXPECT_FALSE(dialog_->tickAllButton()->isEnabled());
    EXPECT_TRUE(dialog_->isVisible());
}

TEST_F(ImportReviewSheet, ReadsWhatComesInAndGoesOut) {
    show();
    const auto reads = [this](const std::string& sentence) {
        for (const QLabel* label : dialog_->findChildren<QLabel*>()) {
            if (label->accessibleName() == qt(sentence)) {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(reads("Money In, " + currencyText(amount("1000"), "CAD")));
    EXPECT_TRUE(reads("Money Out, " + currencyText(amount("-4.5"), "CAD")));
}

TEST_F(ImportReviewSheet, TellsOfACategoryThatNobodyHas) {
    show();
    EXPECT_FALSE(dialog_->note()->isVisible());
    category_ = "Medical";
    show();
    EXPECT_TRUE(dialog_->note()->isVisible());
    EXPECT_TRUE(dialog_->note()->sentence()->text().contains(qt("“Medical”")));
    EXPECT_EQ(cell(0, Column::Category), "Uncategorized");
    EXPECT_NE(cell(0, Column::Category, Qt::AccessibleDescriptionRole).find("“Medical”"),
              std::string::npos);
}

TEST_F(ImportReviewSheet, GivesItsMarkNoMoreRoomThanItNeeds) {
    show();
    const int word = table()->fontMetrics().horizontalAdvance(QStringLiteral("Duplicate"));
    EXPECT_GE(table()->columnWidth(Column::Mark), word);
    EXPECT_LE(table()->columnWidth(Column::Mark), word + (3 * Theme::grid));
    const int payee = table()->columnWidth(Column::Payee);
    const int mark = table()->columnWidth(Column::Mark);
    EXPECT_GT(payee, table()->columnWidth(Column::Category));
    dialog_->view().setAccountID(savings_.id);
    EXPECT_TRUE(table()->isColumnHidden(Column::Mark));
    EXPECT_EQ(table()->columnWidth(Column::Payee), payee + mark);
    dialog_->view().setAccountID(everyday_.id);
    EXPECT_EQ(table()->columnWidth(Column::Mark), mark);
    EXPECT_EQ(table()->columnWidth(Column::Payee), payee);
}

TEST_F(ImportReviewSheet, CutsACategoryAndNotTheNameThatTheStatementHas) {
    const auto home = testing::makeCategory("A home of a very long name indeed");
    const auto repairs =
        testing::makeCategory("Repairs of all kinds", CategoryKind::expense, home.id);
    test_.store->mutate("Add", [&](Library& library) {
        library.categories.push_back(home);
        library.categories.push_back(repairs);
        Transaction before = testing::makeTransaction(savings_.id, day(2026, 1, 1), "Bakery", "-9");
        before.categoryID = repairs.id;
        upsert(library, before);
    });
    // Those that are named alike up to their ends look alike only where these are cut off.
    const auto drawn = [this](const char* category) {
        category_ = category;
        show();
        const QRect place = table()->visualRect(table()->model()->index(0, Column::Category));
        return table()->viewport()->grab(place).toImage();
    };
    EXPECT_NE(drawn("Medical 1"), drawn("Medical 2"));
    EXPECT_NE(cell(0, Column::Category, Qt::ToolTipRole)
                  .find("A home of a very long name indeed: Repairs of all kinds"),
              std::string::npos);
}

TEST_F(ImportReviewSheet, ShowsAllOfALongNoteAndKeepsItsWidth) {
    category_ = "A category of a name that is as long as any that a bank has ever thought of";
    show();
    QApplication::processEvents();
    const QLabel* sentence = dialog_->note()->sentence();
    EXPECT_GE(sentence->height(), 2 * sentence->fontMetrics().height());
    EXPECT_GE(sentence->height(), sentence->heightForWidth(sentence->width()));
    EXPECT_LE(dialog_->minimumSizeHint().width(), dialog_->width());
}

TEST_F(ImportReviewSheet, GoesOnWithReturnFromAnAccountAndImportsNothingYet) {
    show();
    account()->setFocus();
    account()->lineEdit()->selectAll();
    QTest::keyClicks(account(), QStringLiteral("sav"));
    account()->hidePopup();
    QTest::keyClick(account(), Qt::Key_Return);
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(view().accountID(), savings_.id);
    EXPECT_TRUE(table()->hasFocus());
    EXPECT_FALSE(test_.undoManager->canUndo());
}

TEST_F(ImportReviewSheet, IsWalkedThroughWithTabInReadingOrder) {
    show();
    dialog_->view().setIncluded({view().items()[0].id}, false);
    account()->setFocus();
    for (const QWidget* widget : std::initializer_list<QWidget*>{
             table(), dialog_->tickAllButton(), dialog_->tickNoneButton(), dialog_->cancelButton(),
             dialog_->primaryButton(), account()}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(widget->hasFocus()) << utf8(QApplication::focusWidget()->accessibleName());
    }
}

TEST_F(ImportReviewSheet, DrawsTheTickOfADuplicateOtherwise) {
    show();
    const auto tick = [this](int row) {
        const QRect cell = table()->visualRect(table()->model()->index(row, Column::Included));
        return table()->viewport()->grab(cell.adjusted(1, 1, -1, -2)).toImage();
    };
    table()->clearSelection();
    table()->clearFocus();
    EXPECT_EQ(tick(0), tick(2));
    EXPECT_NE(tick(0), tick(1));
}

TEST_F(ImportReviewSheet, IsDoneByKeyboardAlone) {
    show();
    const auto press = [](int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    };
    const auto tabTo = [&](const QWidget* widget) {
        for (int tabs = 0; tabs < 10 && !widget->hasFocus(); ++tabs) {
            press(Qt::Key_Tab);
        }
        return widget->hasFocus();
    };
    ASSERT_TRUE(tabTo(dialog_->tickNoneButton()));
    press(Qt::Key_Return);
    EXPECT_TRUE(view().included().empty());
    EXPECT_TRUE(dialog_->tickAllButton()->hasFocus());
    ASSERT_TRUE(tabTo(table()));
    press(Qt::Key_End, Qt::ControlModifier);
    press(Qt::Key_Space);
    EXPECT_TRUE(isIncluded(2));
    ASSERT_TRUE(tabTo(dialog_->primaryButton()));
    EXPECT_EQ(importTitle(), QStringLiteral("Import 1"));
    press(Qt::Key_Return);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(entries(), 2U);
}

TEST_F(ImportReviewSheet, StillNamesAClosedAccount) {
    test_.store->mutate("Edit", [](Library& library) { library.accounts.edit(0).isClosed = true; });
    show();
    EXPECT_EQ(dialog_->accountPicker()->currentText(), QStringLiteral("Everyday"));
}

TEST_F(ImportReviewSheet, StaysNarrowUnderAFileOfALongName) {
    show();
    const int width = dialog_->minimumSizeHint().width();
    fileName_ = std::string(250, 'x') + ".csv";
    show();
    EXPECT_EQ(dialog_->minimumSizeHint().width(), width);
}

} // namespace
} // namespace oakfen

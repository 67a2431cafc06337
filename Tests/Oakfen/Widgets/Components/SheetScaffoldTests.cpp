#include "Oakfen/Widgets/Components/SheetScaffold.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {

namespace {

/// A sheet that notes what it was told to do.
class NotingSheet final : public SheetScaffold {
public:
    explicit NotingSheet(Panels& panels, bool isDestructive = false)
        : SheetScaffold(panels, QStringLiteral("Edit Goal"), QStringLiteral("Save"), nullptr) {
        content()->addWidget(name);
        content()->addWidget(amount);
        if (isDestructive) {
            addDestructiveButton(destructiveConfirmation("Delete Goal"));
        }
        show();
        activateWindow();
        QApplication::processEvents();
        name->setFocus();
    }

    [[nodiscard]] QPushButton* cancel() const { return button("Cancel"); }
    [[nodiscard]] QPushButton* primary() const { return button("Save"); }

    using SheetScaffold::setCanSave;
    using SheetScaffold::setProblem;
    using SheetScaffold::setSubtitle;

    QLineEdit* name = new QLineEdit;
    AmountField* amount = new AmountField(QStringLiteral("Target"));
    std::string done;

private:
    [[nodiscard]] QPushButton* button(const char* text) const {
        for (QPushButton* each : findChildren<QPushButton*>()) {
            if (each->text() == QString::fromUtf8(text)) {
                return each;
            }
        }
        return nullptr;
    }

protected:
    void save() override { done += isVisible() ? "saves " : "saves too late "; }
    void performDestructiveAction() override {
        done += isVisible() ? "deletes " : "deletes too late ";
    }
};

class Scaffold : public ::testing::Test {
protected:
    static bool tells(const QWidget& sheet, const char* text) {
        for (const QLabel* label : sheet.findChildren<QLabel*>()) {
            if (label->isVisible() && label->text() == QString::fromUtf8(text)) {
                return true;
            }
        }
        return false;
    }

    testing::RecordingPanels panels;
};

} // namespace

TEST_F(Scaffold, PressesTheButtonThatHasTheKeyboardWithReturn) {
    NotingSheet sheet(panels);
    sheet.cancel()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(sheet.cancel(), Qt::Key_Return);
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(sheet.done, "");
}

TEST_F(Scaffold, StaysNarrowWhenTheProblemQuotesALongWord) {
    NotingSheet sheet(panels);
    sheet.amount->setText(QString(250, QLatin1Char('x')));
    sheet.amount->setFocus();
    QTest::keyClick(sheet.amount, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_LT(sheet.width(), 800);
}

TEST_F(Scaffold, TellsTheProblemWhereTheKeyboardIsForAsLongAsThereIsOne) {
    NotingSheet sheet(panels);
    sheet.name->setAccessibleDescription(QStringLiteral("What it is for"));
    sheet.setProblem(QStringLiteral("Enter a name."));
    EXPECT_EQ(sheet.name->accessibleDescription(), QStringLiteral("Enter a name."));
    sheet.setProblem({});
    EXPECT_EQ(sheet.name->accessibleDescription(), QStringLiteral("What it is for"));
}

TEST_F(Scaffold, TellsNothingOfAFieldThatHasBeenMendedSince) {
    NotingSheet sheet(panels);
    const QString help = sheet.amount->accessibleDescription();
    sheet.amount->setFocus();
    sheet.amount->setText(QStringLiteral("abc"));
    sheet.setProblem(sheet.amount->explanation());
    EXPECT_NE(sheet.amount->accessibleDescription(), help);
    sheet.amount->setText(QStringLiteral("12"));
    sheet.setProblem({});
    EXPECT_EQ(sheet.amount->accessibleDescription(), help);
}

TEST_F(Scaffold, SavesNothingThatItMayNotSaveHoweverTheButtonIsPressed) {
    NotingSheet sheet(panels);
    sheet.setCanSave(false);
    Q_EMIT sheet.primary()->clicked(); // as by an assistant, which doesn't leave the fields first
    EXPECT_EQ(sheet.done, "");
    EXPECT_TRUE(sheet.isVisible());
}

TEST_F(Scaffold, ShowsItsTitleAndASubtitleIfThereIsOne) {
    NotingSheet sheet(panels);
    EXPECT_EQ(sheet.windowTitle(), QStringLiteral("Edit Goal"));
    EXPECT_TRUE(tells(sheet, "Edit Goal"));
    EXPECT_FALSE(tells(sheet, "Holidays"));
    sheet.setSubtitle(QStringLiteral("Holidays"));
    EXPECT_TRUE(tells(sheet, "Holidays"));
}

TEST_F(Scaffold, HasNoLeftButtonWithoutADestructiveAction) {
    const NotingSheet sheet(panels);
    EXPECT_EQ(sheet.destructiveButton(), nullptr);
    EXPECT_EQ(sheet.findChildren<QPushButton*>().size(), 2);
}

TEST_F(Scaffold, HasTheDestructiveButtonAtTheLeftThenCancelThenThePrimaryOne) {
    const NotingSheet sheet(panels, true);
    EXPECT_EQ(sheet.destructiveButton()->text(), QStringLiteral("Delete Goal"));
    EXPECT_TRUE(sheet.destructiveButton()->property("destructive").toBool());
    EXPECT_LT(sheet.destructiveButton()->x(), sheet.cancelButton()->x());
    EXPECT_LT(sheet.cancelButton()->x(), sheet.primaryButton()->x());
    EXPECT_EQ(sheet.cancelButton()->text(), QStringLiteral("Cancel"));
    EXPECT_EQ(sheet.primaryButton()->text(), QStringLiteral("Save"));
}

TEST_F(Scaffold, ReturnSavesAndThenCloses) {
    NotingSheet sheet(panels);
    QTest::keyClick(sheet.name, Qt::Key_Return);
    EXPECT_EQ(sheet.done, "saves ");
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(sheet.result(), QDialog::Accepted);
}

TEST_F(Scaffold, CannotBeSavedWhileItsContentSaysSo) {
    NotingSheet sheet(panels);
    sheet.setCanSave(false);
    EXPECT_FALSE(sheet.primaryButton()->isEnabled());
    QTest::keyClick(sheet.name, Qt::Key_Return);
    EXPECT_EQ(sheet.done, "");
    EXPECT_TRUE(sheet.isVisible());
}

TEST_F(Scaffold, CancelAndEscapeCloseWithoutSaving) {
    NotingSheet first(panels);
    QTest::mouseClick(first.cancelButton(), Qt::LeftButton);
    NotingSheet second(panels);
    QTest::keyClick(second.name, Qt::Key_Escape);
    for (const NotingSheet* sheet : {&first, &second}) {
        EXPECT_FALSE(sheet->isVisible());
        EXPECT_EQ(sheet->result(), QDialog::Rejected);
        EXPECT_EQ(sheet->done, "");
    }
}

TEST_F(Scaffold, AsksBeforeTheDestructiveActionAndActsOnlyOnceConfirmed) {
    NotingSheet sheet(panels, true);
    panels.confirms = false;
    sheet.destructiveButton()->click();
    ASSERT_EQ(panels.confirmations.size(), 1U);
    EXPECT_EQ(panels.confirmations[0].title, "Delete Goal?");
    EXPECT_EQ(panels.confirmations[0].message, "You can undo this with Edit ▸ Undo.");
    EXPECT_EQ(panels.confirmations[0].confirmTitle, "Delete Goal");
    EXPECT_TRUE(panels.confirmations[0].isDestructive);
    EXPECT_EQ(sheet.done, "");
    EXPECT_TRUE(sheet.isVisible());
    panels.confirms = true;
    sheet.destructiveButton()->click();
    EXPECT_EQ(sheet.done, "deletes ");
    EXPECT_FALSE(sheet.isVisible());
}

TEST_F(Scaffold, AnAnswerThatComesAfterTheSheetHasGoneDoesNothing) {
    panels.holdsAnswers = true;
    {
        NotingSheet sheet(panels, true);
        sheet.destructiveButton()->click();
    }
    ASSERT_EQ(panels.pending.size(), 1U);
    EXPECT_NO_FATAL_FAILURE(panels.pending[0]());
}

TEST_F(Scaffold, GoesToAFieldThatCannotBeReadInsteadOfSaving) {
    NotingSheet sheet(panels);
    sheet.amount->setText(QStringLiteral("abc"));
    QTest::keyClick(sheet.name, Qt::Key_Return);
    EXPECT_EQ(sheet.done, "");
    EXPECT_TRUE(sheet.amount->hasFocus());
    EXPECT_TRUE(tells(sheet, ("Target: " + utf8(sheet.amount->explanation())).c_str()));
    sheet.amount->hide();
    sheet.name->setFocus();
    QTest::keyClick(sheet.name, Qt::Key_Return);
    EXPECT_EQ(sheet.done, "saves ");
}

} // namespace oakfen

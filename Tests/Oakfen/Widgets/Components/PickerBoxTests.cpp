#include "Oakfen/Widgets/Components/PickerBox.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "Oakfen/Widgets/Components/PickerList.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

namespace {

/// Both kinds of picker with the focus on the accounts.
class Pickers : public ::testing::Test {
protected:
    Pickers() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(accounts);
        column->addWidget(categories);
        accounts->setRows({{.title = "Banking", .isHeader = true},
                           {.title = "My Visa", .id = myVisa},
                           {.title = "Savings", .id = savings},
                           {.title = "Visa", .id = visa},
                           {.title = "Savings", .id = closedSavings}});
        categories->setRows({{.title = "Uncategorized"},
                             {.title = "Income", .isHeader = true},
                             {.title = "Income", .id = income},
                             {.title = "Food: Groceries", .id = groceries}});
        window.resize(500, 400);
        accounts->chosen = [this] { ++changes; };
        categories->chosen = [this] { ++changes; };
        window.show();
        window.activateWindow();
        QApplication::processEvents();
        accounts->setFocus(Qt::TabFocusReason);
    }

    /// Types into the picker and leaves it.
    void enter(PickerBox& picker, const char* text) {
        picker.setFocus();
        picker.lineEdit()->selectAll();
        if (*text == '\0') {
            QTest::keyClick(&picker, Qt::Key_Delete);
        }
        QTest::keyClicks(&picker, QString::fromUtf8(text));
        picker.hidePopup();
        picker.clearFocus();
    }
    /// The lines of the open list between "|", with ">" before the highlighted one.
    static std::string listed(const PickerBox& picker) {
        if (picker.list() == nullptr) {
            return "closed";
        }
        std::string text;
        for (std::size_t line = 0; line < picker.list()->lines().size(); ++line) {
            text += text.empty() ? "" : "|";
            text += picker.list()->current() == line ? ">" : "";
            text += picker.list()->lines()[line].title;
        }
        return text;
    }
    static void press(PickerBox& picker, Qt::Key key) { QTest::keyClick(&picker, key); }
    static std::string text(const PickerBox& picker) { return utf8(picker.currentText()); }
    /// Offers to make each category whose name has no blank in it.
    void letMake(PickerBox& picker) {
        picker.setCreation({.offer =
                                [](const std::string& typed) {
                                    return typed.find(' ') == std::string::npos
                                               ? CategoryOffer{.path = typed}
                                               : CategoryOffer{.remark = "No blanks."};
                                },
                            .make =
                                [this](const std::string& path) {
                                    made.push_back(path);
                                    return PickerRow{.title = path, .id = newID};
                                }});
    }

    UUID myVisa = UUID::random();
    UUID savings = UUID::random();
    UUID visa = UUID::random();
    UUID closedSavings = UUID::random();
    UUID income = UUID::random();
    UUID groceries = UUID::random();
    UUID newID = UUID::random();
    std::vector<std::string> made;
    int changes = 0;
    QWidget window;
    AccountPicker* accounts = new AccountPicker(QStringLiteral("Account"));
    CategoryPicker* categories = new CategoryPicker(QStringLiteral("Category"));
};

} // namespace

TEST_F(Pickers, AsksForAnAccountWhileNoneIsChosen) {
    EXPECT_EQ(accounts->currentText(), QString());
    EXPECT_FALSE(accounts->chosenID());
    EXPECT_EQ(accounts->lineEdit()->placeholderText(), QStringLiteral("Choose an account"));
}

TEST_F(Pickers, TakeAnyPartOfATitle) {
    enter(*accounts, "aving");
    EXPECT_EQ(accounts->chosenID(), savings);
    EXPECT_EQ(accounts->currentText(), QStringLiteral("Savings"));
    enter(*categories, "groc");
    EXPECT_EQ(categories->chosenID(), groceries);
    EXPECT_EQ(changes, 2);
}

TEST_F(Pickers, TakeTheWholeTitleBeforeAPartOfAnother) {
    enter(*accounts, "visa");
    EXPECT_EQ(accounts->chosenID(), visa);
    enter(*accounts, "vis");
    EXPECT_EQ(accounts->chosenID(), myVisa);
}

TEST_F(Pickers, NeverTakeAHeader) {
    enter(*categories, "income");
    EXPECT_EQ(categories->chosenID(), income);
    accounts->choose(savings);
    enter(*accounts, "Banking");
    EXPECT_EQ(accounts->chosenID(), savings);
    EXPECT_EQ(text(*accounts), "Banking");
    EXPECT_FALSE(accounts->isReadable());
}

TEST_F(Pickers, NeverTakeAHeaderWithReturn) {
    accounts->choose(savings);
    accounts->lineEdit()->selectAll();
    QTest::keyClicks(accounts, QStringLiteral("Banking"));
    accounts->hidePopup();
    QTest::keyClick(accounts, Qt::Key_Return);
    EXPECT_EQ(accounts->chosenID(), savings);
    EXPECT_FALSE(accounts->isReadable());
    EXPECT_EQ(changes, 0);
}

TEST_F(Pickers, LeaveHalfATextBeneathAnotherWindow) {
    accounts->choose(savings);
    accounts->lineEdit()->selectAll();
    QTest::keyClicks(accounts, QStringLiteral("vi"));
    accounts->hidePopup();
    QFocusEvent toAnotherWindow(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(accounts, &toAnotherWindow);
    EXPECT_EQ(accounts->currentText(), QStringLiteral("vi"));
    EXPECT_EQ(accounts->chosenID(), savings);
}

TEST_F(Pickers, MarkATextThatMeansNoRowAndKeepIt) {
    categories->choose(groceries);
    categories->setToolTip(QStringLiteral("What it was for"));
    enter(*categories, "nothing of the kind");
    EXPECT_EQ(text(*categories), "nothing of the kind");
    EXPECT_EQ(categories->chosenID(), groceries);
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(categories->property("invalid").toBool());
    EXPECT_EQ(utf8(categories->explanation()), "“nothing of the kind” isn’t a category.");
    EXPECT_EQ(categories->accessibleDescription(), categories->explanation());
    EXPECT_TRUE(categories->toolTip().contains(categories->explanation()));
    enter(*categories, "income");
    EXPECT_FALSE(categories->property("invalid").toBool());
    EXPECT_TRUE(categories->isReadable());
    EXPECT_EQ(categories->accessibleDescription(), QStringLiteral("Category"));
    EXPECT_EQ(categories->toolTip(), QStringLiteral("What it was for"));
}

TEST_F(Pickers, OpenTheListAtAClickWithTheTextSelected) {
    categories->choose(groceries);
    QTest::mouseClick(categories->lineEdit(), Qt::LeftButton, {}, QPoint(12, 8));
    EXPECT_TRUE(categories->hasFocus());
    EXPECT_EQ(categories->lineEdit()->selectedText(), QStringLiteral("Food: Groceries"));
    EXPECT_EQ(listed(*categories), "Uncategorized|Income|Income|>Food: Groceries");
    QTest::keyClicks(categories, QStringLiteral("inc"));
    EXPECT_EQ(text(*categories), "inc");
    EXPECT_EQ(listed(*categories), "Income|>Income");
    press(*categories, Qt::Key_Tab);
    EXPECT_EQ(categories->chosenID(), income);
    EXPECT_EQ(listed(*categories), "closed");
}

TEST_F(Pickers, OpenTheListAtAClickBesideTheTextToo) {
    QTest::mouseClick(categories, Qt::LeftButton, {},
                      QPoint(categories->width() - 8, categories->height() / 2));
    EXPECT_EQ(listed(*categories), "Uncategorized|Income|Income|Food: Groceries");
    QTest::mouseClick(categories, Qt::LeftButton, {},
                      QPoint(categories->width() - 8, categories->height() / 2));
    EXPECT_EQ(listed(*categories), "closed");
}

TEST_F(Pickers, TakeTheLineThatIsClicked) {
    categories->setFocus();
    press(*categories, Qt::Key_Down);
    PickerList* list = categories->list();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(1, 0)).center());
    EXPECT_NE(categories->list(), nullptr) << "a header was taken";
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(3, 0)).center());
    EXPECT_EQ(categories->chosenID(), groceries);
    EXPECT_EQ(listed(*categories), "closed");
    EXPECT_TRUE(categories->hasFocus());
}

TEST_F(Pickers, CloseTheListFirstAtEscapeAndTakeTheTypingBack) {
    categories->choose(groceries);
    categories->setFocus();
    QTest::keyClicks(categories, QStringLiteral("xyz"));
    EXPECT_EQ(listed(*categories), "No matches");
    QKeyEvent first(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(categories, &first);
    EXPECT_TRUE(first.isAccepted());
    EXPECT_EQ(listed(*categories), "closed");
    EXPECT_EQ(text(*categories), "Food: Groceries");
    EXPECT_TRUE(categories->isReadable());
    QKeyEvent second(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(categories, &second);
    EXPECT_FALSE(second.isAccepted());
}

TEST_F(Pickers, CloseTheListAtAClickElsewhereAndWhenTheWindowChanges) {
    categories->setFocus();
    press(*categories, Qt::Key_Down);
    QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(2, window.height() - 2));
    EXPECT_EQ(listed(*categories), "closed");
    press(*categories, Qt::Key_Down);
    window.resize(520, 410);
    QApplication::processEvents();
    EXPECT_EQ(listed(*categories), "closed");
    press(*categories, Qt::Key_Down);
    categories->hide();
    EXPECT_EQ(listed(*categories), "closed");
}

TEST_F(Pickers, KeepTheListWithinTheWindow) {
    std::vector<PickerRow> many;
    for (int number = 0; number < 200; ++number) {
        many.push_back({.title = "Number " + std::to_string(number), .id = UUID::random()});
    }
    categories->setRows(many);
    categories->setFocus();
    press(*categories, Qt::Key_Down);
    ASSERT_NE(categories->list(), nullptr);
    EXPECT_EQ(categories->list()->parentWidget(), &window);
    EXPECT_TRUE(window.rect().contains(categories->list()->geometry()));
    EXPECT_FALSE(categories->list()->geometry().intersects(
        QRect(categories->mapTo(&window, QPoint()), categories->size())));
    EXPECT_GT(categories->list()->height(), 100);
}

TEST_F(Pickers, MakeWhatTheListLacksWhenThePersonAsksForIt) {
    letMake(*categories);
    categories->setFocus();
    QTest::keyClicks(categories, QStringLiteral("Vet"));
    EXPECT_EQ(listed(*categories), "Create “Vet”");
    EXPECT_FALSE(categories->isReadable());
    press(*categories, Qt::Key_Down);
    EXPECT_EQ(listed(*categories), ">Create “Vet”");
    press(*categories, Qt::Key_Return);
    EXPECT_EQ(made, std::vector<std::string>{"Vet"});
    EXPECT_EQ(categories->chosenID(), newID);
    EXPECT_EQ(text(*categories), "Vet");
    EXPECT_TRUE(categories->isReadable());
    EXPECT_EQ(changes, 1);
}

TEST_F(Pickers, MakeNothingByTheWay) {
    letMake(*categories);
    categories->choose(groceries);
    enter(*categories, "Vet");
    EXPECT_TRUE(made.empty());
    EXPECT_EQ(utf8(categories->explanation()),
              "“Vet” isn’t a category. Choose “Create” in its list to make it one.");
    enter(*categories, "a b");
    EXPECT_TRUE(utf8(categories->explanation()).ends_with("No blanks."));
    categories->setFocus();
    press(*categories, Qt::Key_Down);
    EXPECT_EQ(listed(*categories), "No blanks.");
    press(*categories, Qt::Key_Down);
    press(*categories, Qt::Key_Return);
    EXPECT_TRUE(made.empty());
    EXPECT_EQ(categories->chosenID(), groceries);
}

TEST_F(Pickers, ForgetNothingHalfTypedWhenTheRowsChange) {
    categories->setFocus();
    QTest::keyClicks(categories, QStringLiteral("groc"));
    categories->setRows({{.title = "Uncategorized"}, {.title = "Groceries", .id = groceries}});
    EXPECT_EQ(text(*categories), "groc");
    categories->clearFocus();
    EXPECT_EQ(categories->chosenID(), groceries);
}

TEST_F(Pickers, RegardNoAccents) {
    categories->setRows({{.title = "Food: Cafés", .id = groceries}});
    enter(*categories, "cafe");
    EXPECT_EQ(categories->chosenID(), groceries);
}

TEST_F(Pickers, TakeAnEmptiedFieldAsNoCategoryButNotAsNoAccount) {
    categories->choose(groceries);
    enter(*categories, "");
    EXPECT_FALSE(categories->chosenID());
    EXPECT_EQ(categories->currentText(), QStringLiteral("Uncategorized"));
    accounts->choose(visa);
    enter(*accounts, "");
    EXPECT_EQ(accounts->chosenID(), visa);
    EXPECT_EQ(utf8(accounts->explanation()), "Choose an account.");
}

TEST_F(Pickers, StayWithTheChosenOneOfTwoOfTheSameName) {
    accounts->choose(closedSavings);
    accounts->setFocus();
    accounts->clearFocus();
    EXPECT_EQ(accounts->chosenID(), closedSavings);
    EXPECT_EQ(changes, 0);
}

TEST_F(Pickers, KeepTheChoiceWhenTheRowsChange) {
    accounts->choose(visa);
    accounts->setRows({{.title = "Visa", .id = visa}});
    EXPECT_EQ(accounts->chosenID(), visa);
    accounts->setRows({{.title = "Savings", .id = savings}});
    EXPECT_FALSE(accounts->chosenID());
    EXPECT_EQ(accounts->currentText(), QString());
}

TEST_F(Pickers, AreWalkedThroughWithTheArrowKeysPastHeaders) {
    categories->setFocus();
    categories->choose(std::nullopt);
    press(*categories, Qt::Key_Down);
    EXPECT_EQ(listed(*categories), ">Uncategorized|Income|Income|Food: Groceries");
    press(*categories, Qt::Key_Down);
    EXPECT_EQ(categories->list()->current(), 2U);
    press(*categories, Qt::Key_Down);
    press(*categories, Qt::Key_Down);
    EXPECT_EQ(categories->list()->current(), 3U);
    press(*categories, Qt::Key_PageUp);
    EXPECT_EQ(categories->list()->current(), 0U);
    press(*categories, Qt::Key_PageDown);
    press(*categories, Qt::Key_Up);
    EXPECT_EQ(changes, 0);
    press(*categories, Qt::Key_Return);
    EXPECT_EQ(categories->chosenID(), income);
    EXPECT_EQ(changes, 1);
    press(*categories, Qt::Key_PageDown);
    EXPECT_EQ(categories->chosenID(), income);
    EXPECT_EQ(listed(*categories), "closed");
}

TEST_F(Pickers, LeaveTheWheelToWhatScrolls) {
    accounts->choose(savings);
    QWheelEvent turn(QPointF(5, 5), accounts->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(accounts, &turn);
    EXPECT_EQ(accounts->chosenID(), savings);
    EXPECT_FALSE(turn.isAccepted());
}

} // namespace oakfen

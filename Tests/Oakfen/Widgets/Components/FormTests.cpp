#include "Oakfen/Widgets/Components/Form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "Oakfen/Widgets/Components/AmountField.h"
#include "Oakfen/Widgets/Components/DateField.h"
#include "Oakfen/Widgets/Components/MoneyLabel.h"
#include "Oakfen/Widgets/Components/PickerBox.h"
#include "Oakfen/Widgets/Components/SegmentedChoice.h"
#include "Oakfen/Widgets/Components/StepField.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "OakfenCore/Testing/FixedClock.h"
#include "Tests/Oakfen/Widgets/AccessibleTree.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {

namespace {

enum class Pace { slow, steady, fast };

std::string_view title(Pace pace) {
    switch (pace) {
    case Pace::slow:
        return "Slow";
    case Pace::steady:
        return "Steady";
    case Pace::fast:
        return "Fast";
    }
    return {};
}

} // namespace

// Not in the order of declaration, as where people see the cases otherwise.
template <>
inline constexpr auto allCases<Pace> = std::array{Pace::fast, Pace::steady, Pace::slow};

namespace {

using testing::amount;
using testing::day;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A form with every kind of field, over a draft of nothing in particular.
class Forms : public ::testing::Test {
protected:
    struct Draft {
        Pace pace = Pace::steady;
        std::string name = "Canoe";
        std::string password;
        Decimal price = amount("12.5");
        oakfen::Date due = day(2026, 3, 20, 9);
        std::optional<UUID> account;
        std::optional<UUID> category;
        std::optional<UUID> goal;
        Frequency repeats = Frequency::monthly;
        bool isRented = false;
        int days = 7;
        std::string notes = "Red\nor blue";
    };

    Forms() {
        draft.account = everyday;
        declare();
        form.changed = [this] {
            ++changes;
            form.refresh();
        };
        form.refresh();
        form.show();
        form.activateWindow();
        QApplication::processEvents();
    }

    void declare() {
        form.segments(QStringLiteral("Pace"), draft.pace);
        form.text({}, draft.name)
            .labelled([this] { return draft.isRented ? label : QStringLiteral("Name"); })
            .hint([this] { return draft.isRented ? QStringLiteral("As on the slip.") : QString(); })
            .prompt(QStringLiteral("e.g. Canoe"))
            .help(QStringLiteral("What it is called"));
        form.secret(QStringLiteral("Password"), draft.password);
        form.amount(QStringLiteral("Price"), draft.price).help(QStringLiteral("What it costs"));
        form.day(QStringLiteral("Due"), draft.due);
        form.account(QStringLiteral("Pay From"), draft.account, [this] { return accounts; })
            .help(QStringLiteral("Who pays"));
        form.category(QStringLiteral("Category"), draft.category, [this] {
            return std::vector<PickerRow>{{.title = "Uncategorized"},
                                          {.title = "Sports", .id = sports}};
        });
        form.record(QStringLiteral("Goal"), draft.goal, [this] {
            return std::vector<PickerRow>{{.title = "None"}, {.title = "Summer", .id = summer}};
        });
        form.choice(QStringLiteral("Repeats"), choiceRows<Frequency>(), draft.repeats).narrow();
        form.toggle(QStringLiteral("Rented"), draft.isRented);
        form.stepper(QStringLiteral("Every"),
                     {.least = 1,
                      .greatest = 90,
                      .suffix = QStringLiteral(" Days"),
                      .leastText = QStringLiteral("Day")},
                     draft.days)
            .shownWhen([this] { return draft.isRented; });
        total = dynamic_cast<MoneyLabel*>(
            form.figure(QStringLiteral("Total"), [this] { return moneyText(draft.price, "CAD"); })
                .field());
        form.custom({}, button).help(QStringLiteral("Gives it back"));
        form.paragraph(QStringLiteral("Notes"), draft.notes);
    }

    template <typename Widget>
    Widget& field(const char* name) {
        for (Widget* each : form.findChildren<Widget*>()) {
            if (each->accessibleName() == QString::fromUtf8(name)) {
                return *each;
            }
        }
        throw std::runtime_error(name);
    }
    QCheckBox& rented() { return *form.findChild<QCheckBox*>(); }
    void pressWord(const char* word) {
        for (QPushButton* each : form.findChildren<QPushButton*>()) {
            if (each->text() == QString::fromUtf8(word)) {
                each->click();
            }
        }
    }
    /// Types over what the field shows.
    template <typename Widget>
    void enter(Widget& field, const char* text) {
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, QString::fromUtf8(text));
    }
    /// Chooses the line as the person does.
    static void choose(QComboBox& box, const char* line) {
        box.setCurrentIndex(box.findText(QString::fromUtf8(line)));
        Q_EMIT box.activated(box.currentIndex());
    }
    [[nodiscard]] bool reads(const QString& text) {
        for (const QLabel* each : form.findChildren<QLabel*>()) {
            if (each->isVisible() && each->text() == text) {
                return true;
            }
        }
        return false;
    }

    UUID everyday = UUID::random();
    UUID savings = UUID::random();
    UUID sports = UUID::random();
    UUID summer = UUID::random();
    std::vector<PickerRow> accounts{{.title = "Everyday", .id = everyday},
                                    {.title = "Savings", .id = savings}};
    QString label = QStringLiteral("Slip");
    int changes = 0;
    MoneyLabel* total = nullptr;
    Draft draft;
    QPushButton* button = new QPushButton(QStringLiteral("Return It"));
    FixedClock clock{day(2026, 3, 20)};
    Form form{clock};
};

TEST_F(Forms, ShowTheDraft) {
    EXPECT_EQ(field<SegmentedChoice>("Pace").choice(), 1);
    EXPECT_EQ(field<QLineEdit>("Name").text(), QStringLiteral("Canoe"));
    EXPECT_EQ(field<AmountField>("Price").value(), amount("12.5"));
    EXPECT_EQ(field<DateField>("Due").value(), day(2026, 3, 20, 9));
    EXPECT_EQ(field<AccountPicker>("Pay From").currentText(), QStringLiteral("Everyday"));
    EXPECT_EQ(field<CategoryPicker>("Category").currentText(), QStringLiteral("Uncategorized"));
    EXPECT_EQ(field<PickerBox>("Goal").currentText(), QStringLiteral("None"));
    EXPECT_EQ(field<QComboBox>("Repeats").currentText(), QStringLiteral("Monthly"));
    EXPECT_FALSE(rented().isChecked());
    EXPECT_EQ(field<StepField>("Every").text(), QStringLiteral("7 Days"));
    EXPECT_EQ(form.findChild<QPlainTextEdit*>()->toPlainText(), QStringLiteral("Red\nor blue"));
    EXPECT_EQ(changes, 0);
}

TEST_F(Forms, WriteWhatIsEnteredIntoTheDraft) {
    pressWord("Fast");
    enter(field<QLineEdit>("Name"), "Kayak");
    enter(field<QLineEdit>("Password"), "paddle");
    enter(field<AmountField>("Price"), "20/3");
    field<DateField>("Due").setFocus();
    QTest::keyClick(&field<DateField>("Due"), Qt::Key_Up);
    choose(field<AccountPicker>("Pay From"), "Savings");
    choose(field<CategoryPicker>("Category"), "Sports");
    choose(field<PickerBox>("Goal"), "Summer");
    choose(field<QComboBox>("Repeats"), "Yearly");
    rented().click();
    QTest::keyClick(&field<StepField>("Every"), Qt::Key_Up);
    enter(*form.findChild<QPlainTextEdit*>(), "Green");
    EXPECT_EQ(draft.pace, Pace::fast);
    EXPECT_EQ(draft.name, "Kayak");
    EXPECT_EQ(draft.password, "paddle");
    EXPECT_EQ(draft.price, amount("6.67"));
    EXPECT_EQ(draft.due, day(2026, 3, 21, 9));
    EXPECT_EQ(draft.account, savings);
    EXPECT_EQ(draft.category, sports);
    EXPECT_EQ(draft.goal, summer);
    EXPECT_EQ(draft.repeats, Frequency::yearly);
    EXPECT_TRUE(draft.isRented);
    EXPECT_EQ(draft.days, 8);
    EXPECT_EQ(draft.notes, "Green");
    EXPECT_GT(changes, 10);
}

TEST_F(Forms, ShowADraftThatWasChangedAsAWhole) {
    const int before = changes;
    draft = {.pace = Pace::slow,
             .name = "Tent",
             .password = "pegs",
             .price = amount("99"),
             .due = day(2026, 5, 1),
             .account = savings,
             .category = sports,
             .goal = summer,
             .repeats = Frequency::once,
             .isRented = true,
             .days = 1,
             .notes = "Leaks"};
    form.refresh();
    EXPECT_EQ(field<SegmentedChoice>("Pace").choice(), 2);
    EXPECT_EQ(field<QLineEdit>("Slip").text(), QStringLiteral("Tent"));
    EXPECT_EQ(field<QLineEdit>("Password").text(), QStringLiteral("pegs"));
    EXPECT_EQ(field<AmountField>("Price").text(), QStringLiteral("99.00"));
    EXPECT_EQ(field<DateField>("Due").value(), day(2026, 5, 1));
    EXPECT_EQ(field<AccountPicker>("Pay From").chosenID(), savings);
    EXPECT_EQ(field<CategoryPicker>("Category").chosenID(), sports);
    EXPECT_EQ(field<PickerBox>("Goal").chosenID(), summer);
    EXPECT_EQ(field<QComboBox>("Repeats").currentText(), QStringLiteral("Once"));
    EXPECT_TRUE(rented().isChecked());
    EXPECT_EQ(field<StepField>("Every").text(), QStringLiteral("Day"));
    EXPECT_EQ(total->money().text, moneyText(amount("99"), "CAD").text);
    EXPECT_EQ(form.findChild<QPlainTextEdit*>()->toPlainText(), QStringLiteral("Leaks"));
    EXPECT_EQ(changes, before);
}

TEST_F(Forms, LoseNothingThatIsHalfTypedWhenAnotherFieldChanges) {
    auto& price = field<AmountField>("Price");
    enter(price, "12+");
    auto& name = field<QLineEdit>("Name");
    enter(name, "Boat");
    name.setCursorPosition(1);
    QTest::keyClicks(&name, QStringLiteral("l"));
    rented().click();
    EXPECT_EQ(price.text(), QStringLiteral("12+"));
    EXPECT_FALSE(price.isReadable());
    EXPECT_EQ(draft.name, "Bloat");
    EXPECT_EQ(name.cursorPosition(), 2);
}

TEST_F(Forms, LoseNoHalfTypedChoiceWhileNothingIsChosen) {
    auto& category = field<CategoryPicker>("Category");
    category.setFocus();
    category.lineEdit()->selectAll();
    QTest::keyClicks(category.lineEdit(), QStringLiteral("Sp"));
    category.lineEdit()->setCursorPosition(1);
    const QString typed = category.lineEdit()->text();
    rented().click();
    EXPECT_EQ(category.lineEdit()->text(), typed);
    EXPECT_EQ(category.lineEdit()->cursorPosition(), 1);
}

TEST_F(Forms, ListWhatCanBeChosenAnew) {
    accounts = {{.title = "Savings", .id = savings}};
    form.refresh();
    auto& picker = field<AccountPicker>("Pay From");
    EXPECT_EQ(picker.count(), 1);
    EXPECT_EQ(picker.currentIndex(), -1);
    EXPECT_EQ(draft.account, everyday);
    accounts.insert(accounts.begin(), {.title = "Everyday", .id = everyday});
    form.refresh();
    EXPECT_EQ(picker.chosenID(), everyday);
}

TEST_F(Forms, ShowAFieldAndItsLabelOnlyWhileItHasAPlace) {
    EXPECT_FALSE(field<StepField>("Every").isVisible());
    EXPECT_FALSE(reads(QStringLiteral("Every")));
    rented().click();
    EXPECT_TRUE(field<StepField>("Every").isVisible());
    EXPECT_TRUE(reads(QStringLiteral("Every")));
    rented().click();
    EXPECT_FALSE(field<StepField>("Every").isVisible());
}

TEST_F(Forms, NameAFieldAndHintBeneathItAsTheDraftSays) {
    EXPECT_FALSE(reads(QStringLiteral("As on the slip.")));
    rented().click();
    EXPECT_TRUE(reads(QStringLiteral("Slip")));
    EXPECT_TRUE(reads(QStringLiteral("As on the slip.")));
    EXPECT_FALSE(reads(QStringLiteral("Name")));
}

TEST_F(Forms, ShowALabelFromTheDocumentAsItStands) {
    label = QStringLiteral("<b>A & B</b>");
    rented().click();
    QLabel* shown = nullptr;
    for (QLabel* each : form.findChildren<QLabel*>()) {
        shown = each->buddy() == &field<QLineEdit>("<b>A & B</b>") ? each : shown;
    }
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->textFormat(), Qt::PlainText);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(shown)->text(QAccessible::Name), label);
}

TEST_F(Forms, AreWalkedThroughWithTabInTheOrderOfDeclaration) {
    rented().click();
    std::vector<std::string> order;
    for (const QWidget* each : testing::tabOrder(form)) {
        const auto* pressed = qobject_cast<const QAbstractButton*>(each);
        order.push_back(utf8(pressed != nullptr ? pressed->text() : each->accessibleName()));
    }
    EXPECT_THAT(order,
                ElementsAre("Steady", "Slip", "Password", "Price", "Due", "Pay From", "Category",
                            "Goal", "Repeats", "Rented", "Every", "Return It", "Notes"));
    EXPECT_THAT(testing::stepsAgainstReadingOrder(form), IsEmpty());
}

TEST_F(Forms, HaveFieldsOfOneHeight) {
    rented().click();
    QApplication::processEvents();
    const int height = field<QLineEdit>("Slip").height();
    EXPECT_EQ(field<QLineEdit>("Password").height(), height);
    EXPECT_EQ(field<AmountField>("Price").height(), height);
    EXPECT_EQ(field<DateField>("Due").height(), height);
    EXPECT_EQ(field<AccountPicker>("Pay From").height(), height);
    EXPECT_EQ(field<QComboBox>("Repeats").height(), height);
    EXPECT_EQ(field<StepField>("Every").height(), height);
}

TEST_F(Forms, BeginWithTheFirstFieldThatTakesTheKeyboard) {
    form.focusFirst();
    EXPECT_TRUE(field<QLineEdit>("Name").hasFocus());
    QTest::keyClicks(&field<QLineEdit>("Name"), QStringLiteral("s"));
    EXPECT_EQ(draft.name, "Canoes");
}

TEST_F(Forms, TellThoseWhoListenWhatEachFieldIsAndWhatItIsFor) {
    rented().click();
    EXPECT_THAT(testing::namelessNodes(form), IsEmpty());
    const auto description = [](QWidget& widget) {
        return utf8(QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description));
    };
    EXPECT_EQ(description(field<QLineEdit>("Slip")), "What it is called");
    EXPECT_THAT(description(field<AmountField>("Price")), ::testing::StartsWith("What it costs. "));
    EXPECT_EQ(description(field<AccountPicker>("Pay From")), "Pay From. Who pays");
    EXPECT_EQ(description(field<QComboBox>("Repeats")), "Repeats");
    EXPECT_EQ(button->toolTip(), QStringLiteral("Gives it back"));
    const auto nodes = testing::accessibleNodes(form);
    const auto every = std::ranges::find(nodes, QStringLiteral("Every"), [](const auto& node) {
        return node.labels.empty() ? QString() : node.labels.front();
    });
    EXPECT_NE(every, nodes.end());
}

TEST_F(Forms, ShowNothingOfASecret) {
    auto& password = field<QLineEdit>("Password");
    enter(password, "paddle");
    EXPECT_FALSE(password.displayText().contains(QStringLiteral("paddle")));
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&password);
    EXPECT_TRUE(heard->state().passwordEdit);
    EXPECT_FALSE(heard->text(QAccessible::Value).contains(QStringLiteral("paddle")));
    EXPECT_EQ(draft.password, "paddle");
}

TEST_F(Forms, StepWithinTheBounds) {
    rented().click();
    auto& every = field<StepField>("Every");
    draft.days = 2;
    form.refresh();
    QTest::keyClick(&every, Qt::Key_Down);
    QTest::keyClick(&every, Qt::Key_Down);
    EXPECT_EQ(draft.days, 1);
    EXPECT_EQ(every.text(), QStringLiteral("Day"));
    draft.days = 89;
    form.refresh();
    QTest::keyClick(&every, Qt::Key_Up);
    QTest::keyClick(&every, Qt::Key_Up);
    EXPECT_EQ(draft.days, 90);
    enter(every, "12");
    EXPECT_EQ(draft.days, 12);
    enter(every, "95");
    EXPECT_EQ(draft.days, 9);
}

TEST_F(Forms, ShowAStoredNumberBeyondTheBoundsUntilAnotherIsChosen) {
    rented().click();
    auto& every = field<StepField>("Every");
    draft.days = 365;
    form.refresh();
    EXPECT_EQ(every.text(), QStringLiteral("365 Days"));
    rented().click();
    EXPECT_EQ(draft.days, 365);
    rented().click();
    QTest::keyClick(&every, Qt::Key_Down);
    EXPECT_EQ(draft.days, 90);
    QTest::keyClick(&every, Qt::Key_Up);
    EXPECT_EQ(draft.days, 90);
}

} // namespace
} // namespace oakfen

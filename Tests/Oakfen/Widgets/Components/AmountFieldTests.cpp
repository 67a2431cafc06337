#include "Oakfen/Widgets/Components/AmountField.h"

#include <gtest/gtest.h>

#include <QTest>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Support/TestLedger.h"

namespace oakfen {

using testing::amount;

namespace {

QString qs(const char* text) {
    return QString::fromUtf8(text);
}

/// A field in a window that it can lose the focus in.
struct Form {
    QWidget window;
    AmountField* field = new AmountField(qs("Opening Balance"), AmountKind::money, &window);
    QLineEdit* other = new QLineEdit(&window);

    Form() {
        window.show();
        window.activateWindow();
        QApplication::processEvents();
        field->setFocus();
        QApplication::processEvents();
    }

    void type(const char* text) {
        field->selectAll();
        QTest::keyClicks(field, qs(text));
    }
};

} // namespace

TEST(AmountFieldWidget, StartsAtZeroAndSaysWhatItIsFor) {
    const AmountField field(qs("Opening Balance"));
    EXPECT_EQ(field.text(), qs("0.00"));
    EXPECT_EQ(field.accessibleName(), qs("Opening Balance"));
    EXPECT_TRUE(field.isReadable());
}

TEST(AmountFieldWidget, GrowsWithALongAmountAndShrinksAgain) {
    AmountField field(qs("Amount"));
    const int usual = field.minimumWidth();
    field.setValue(amount("-12345678901234.56"));
    EXPECT_GT(field.minimumWidth(), field.fontMetrics().horizontalAdvance(field.text()));
    EXPECT_GT(field.minimumWidth(), usual);
    field.setValue(amount("12.5"));
    EXPECT_EQ(field.minimumWidth(), usual);
}

TEST(AmountFieldWidget, KeepsWhatIsTypedAtOnceAfterAClickIntoIt) {
    Form form;
    form.other->setFocus();
    form.field->setFocus(Qt::MouseFocusReason);
    QTest::keyClicks(form.field, qs("1"));
    QApplication::processEvents();
    QTest::keyClicks(form.field, qs("2"));
    EXPECT_EQ(form.field->text(), qs("12"));
}

TEST(AmountFieldWidget, TakesWhatIsTypedAndShowsTwoDecimalsAfterwards) {
    Form form;
    form.type("1234.5");
    EXPECT_EQ(form.field->value(), amount("1234.5"));
    EXPECT_EQ(form.field->text(), qs("1234.5"));
    form.other->setFocus();
    EXPECT_EQ(form.field->text(), qs("1,234.50"));
}

TEST(AmountFieldWidget, TellsOfEachChange) {
    Form form;
    int changes = 0;
    form.field->edited = [&changes] { ++changes; };
    form.type("12");
    EXPECT_EQ(changes, 2);
}

TEST(AmountFieldWidget, ExplainsATextThatIsNoAmount) {
    Form form;
    form.field->setValue(amount("40"));
    form.type("abc");
    EXPECT_FALSE(form.field->isReadable());
    EXPECT_EQ(form.field->value(), amount("40"));
    EXPECT_EQ(form.field->toolTip(), plainToolTip(form.field->explanation()));
    EXPECT_TRUE(form.field->explanation().contains(qs("abc")));
    form.other->setFocus();
    EXPECT_EQ(form.field->text(), qs("abc"));
}

TEST(AmountFieldWidget, KeepsDigitsThatItDoesNotShow) {
    Form form;
    form.field->setValue(amount("1.2345"));
    EXPECT_EQ(form.field->text(), qs("1.23"));
    form.other->setFocus();
    EXPECT_EQ(form.field->value(), amount("1.2345"));
}

TEST(AmountFieldWidget, SelectsItsTextWhenItIsEntered) {
    Form form;
    EXPECT_EQ(form.field->selectedText(), qs("0.00"));
}

TEST(AmountFieldWidget, MarksATextThatIsNoAmountAndNoOther) {
    Form form;
    EXPECT_FALSE(form.field->property("invalid").toBool());
    form.type("abc");
    EXPECT_TRUE(form.field->property("invalid").toBool());
    EXPECT_EQ(form.field->accessibleDescription(), form.field->explanation());
    form.type("3");
    EXPECT_FALSE(form.field->property("invalid").toBool());
    EXPECT_EQ(form.field->toolTip(), qs("An amount, or a sum such as 12.50+3*2 or 100+13%"));
}

TEST(AmountFieldWidget, StaysAsItIsTypedBeneathAMenuOrAnotherWindow) {
    Form form;
    form.type("12.5");
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        QFocusEvent leave(QEvent::FocusOut, reason);
        QApplication::sendEvent(form.field, &leave);
        EXPECT_EQ(form.field->text(), qs("12.5"));
        QFocusEvent comeBack(QEvent::FocusIn, reason);
        QApplication::sendEvent(form.field, &comeBack);
        QApplication::processEvents();
        EXPECT_EQ(form.field->selectedText(), QString());
    }
    QTest::keyClicks(form.field, qs("0"));
    EXPECT_EQ(form.field->text(), qs("12.50"));
}

TEST(AmountFieldWidget, ShowsTheLongestAmountWhole) {
    AmountField field(qs("Amount"));
    const Decimal longest = amount("9" + std::string(100, '0'));
    field.setValue(longest);
    EXPECT_EQ(field.text().size(), 101 + 33 + 3);
    EXPECT_EQ(field.value(), longest);
}

} // namespace oakfen

#include "Oakfen/Widgets/Shell/OneLineFields.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace oakfen {
namespace {

/// A field that was shown while the rule is in force.
class OneLineField : public ::testing::Test {
protected:
    OneLineField() {
        (new QVBoxLayout(&window))->addWidget(field);
        window.show();
        field->setFocus();
        QObject::connect(field, &QLineEdit::textEdited,
                         [this](const QString& text) { edits.append(text); });
    }

    QObject owner;
    OneLineFields rule{&owner};
    QWidget window;
    QLineEdit* field = new QLineEdit;
    QStringList edits;
};

TEST_F(OneLineField, TakesBlanksForPastedLineBreaks) {
    QGuiApplication::clipboard()->setText(QStringLiteral("one\ntwo\r\nthree\u2028four"));
    field->paste();
    EXPECT_EQ(field->text(), QStringLiteral("one two three four"));
    EXPECT_EQ(field->cursorPosition(), field->text().size());
    EXPECT_EQ(edits.last(), field->text());
}

TEST_F(OneLineField, KeepsTheCursorBehindWhatWasPasted) {
    field->setText(QStringLiteral("ab"));
    field->setCursorPosition(1);
    QGuiApplication::clipboard()->setText(QStringLiteral("1\r\n2"));
    field->paste();
    EXPECT_EQ(field->text(), QStringLiteral("a1 2b"));
    QTest::keyClicks(field, QStringLiteral("x"));
    EXPECT_EQ(field->text(), QStringLiteral("a1 2xb"));
}

TEST_F(OneLineField, LeavesWhatARecordHoldsUntilItIsEdited) {
    field->setText(QStringLiteral("a\nb"));
    EXPECT_EQ(field->text(), QStringLiteral("a\nb"));
    field->end(false);
    QTest::keyClicks(field, QStringLiteral("c"));
    EXPECT_EQ(field->text(), QStringLiteral("a bc"));
}

TEST_F(OneLineField, LeavesTextOfOneLineAndItsUndoAlone) {
    QTest::keyClicks(field, QStringLiteral("abc"));
    EXPECT_TRUE(field->isUndoAvailable());
    field->undo();
    EXPECT_EQ(field->text(), QString());
}

TEST_F(OneLineField, TakesThePasswordOutOfACopiedLine) {
    field->setEchoMode(QLineEdit::Password);
    QGuiApplication::clipboard()->setText(QStringLiteral("open sesame\n"));
    field->paste();
    EXPECT_EQ(field->text(), QStringLiteral("open sesame"));
}

} // namespace
} // namespace oakfen

#include "Oakfen/Widgets/Components/EditorSheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Oakfen/Widgets/AccessibleTree.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An editor of a made-up thing, which notes what it was told to do. With a password it works in
/// the background.
class ThingEditor final : public Editor {
public:
    explicit ThingEditor(AppEnvironment& environment) : environment_(environment) {}

    std::string name;
    std::string password;
    bool isStored = true;
    std::optional<SecondAction> second;
    /// Why its work fails, if it does.
    std::optional<std::string> failure;
    std::string* done = nullptr;

    [[nodiscard]] std::string title() const override { return "Edit Thing"; }
    [[nodiscard]] std::string subtitle() const override { return "Called " + name; }
    [[nodiscard]] std::string primaryTitle() const override { return "Keep"; }
    [[nodiscard]] std::optional<std::string> obstacle() const override {
        return name.empty() ? std::optional<std::string>("Enter <any> name.") : std::nullopt;
    }
    void save() override {
        if (name == "Broken") {
            throw LocalizedError("It is broken.");
        }
        *done += "saves ";
        if (!password.empty()) {
            beginWork("Encrypting…");
            work_ = environment_.scheduler.background([] {}, [this] { endWork(failure); });
        }
    }
    [[nodiscard]] std::optional<SecondAction> secondAction() const override { return second; }
    void performSecondAction() override { *done += "skips "; }
    [[nodiscard]] std::optional<ConfirmationRequest> deleteConfirmation() const override {
        return isStored ? std::optional(destructiveConfirmation("Delete Thing")) : std::nullopt;
    }
    void performDelete() override { *done += "deletes "; }

private:
    AppEnvironment& environment_;
    ScheduledWork work_;
};

class ThingSheet final : public EditorSheetOf<ThingEditor> {
public:
    ThingSheet(AppEnvironment& environment, std::unique_ptr<ThingEditor> editor)
        : EditorSheetOf(environment, std::move(editor), nullptr) {
        ThingEditor& edited = this->editor();
        form().text(QStringLiteral("Name"), edited.name);
        form().secret(QStringLiteral("Password"), edited.password);
        begin();
    }
};

class EditorSheets : public ::testing::Test {
protected:
    void open() {
        editor->done = &done;
        sheet = std::make_unique<ThingSheet>(*test, std::move(editor));
        sheet->show();
        sheet->activateWindow();
        QApplication::processEvents();
    }
    void openWithSecondAction() {
        editor->second = SecondAction{.title = "Skip", .help = "Leaves it for another day"};
        open();
    }

    [[nodiscard]] QLineEdit& field(const char* name) const {
        for (QLineEdit* each : sheet->findChildren<QLineEdit*>()) {
            if (each->accessibleName() == QString::fromUtf8(name)) {
                return *each;
            }
        }
        throw std::runtime_error(name);
    }
    [[nodiscard]] QPushButton& button(const char* text) const {
        for (QPushButton* each : sheet->findChildren<QPushButton*>()) {
            if (each->text() == QString::fromUtf8(text)) {
                return *each;
            }
        }
        throw std::runtime_error(text);
    }
    [[nodiscard]] bool tells(const char* text) const {
        for (const QLabel* label : sheet->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text() == QString::fromUtf8(text)) {
                return true;
            }
        }
        return false;
    }
    void name(const char* text) const { field("Name").setText(QString::fromUtf8(text)); }
    static std::string description(QWidget& widget) {
        return utf8(QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description));
    }
    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    /// Types a name and a password, and saves.
    void startWork() {
        open();
        name("Boat");
        field("Password").setText(QStringLiteral("paddle"));
        field("Password").setFocus();
        press(Qt::Key_Return);
    }

    testing::TestEnvironment test;
    std::string done;
    std::unique_ptr<ThingEditor> editor = std::make_unique<ThingEditor>(*test);
    std::unique_ptr<ThingSheet> sheet;
};

TEST_F(EditorSheets, AreCalledAsTheirEditorSays) {
    open();
    EXPECT_EQ(sheet->windowTitle(), QStringLiteral("Edit Thing"));
    EXPECT_EQ(sheet->primaryButton()->text(), QStringLiteral("Keep"));
    EXPECT_TRUE(field("Name").hasFocus());
    name("Boat");
    EXPECT_TRUE(tells("Called Boat"));
}

TEST_F(EditorSheets, SayAtTheDefaultButtonWhatKeepsThemFromBeingSaved) {
    open();
    EXPECT_FALSE(sheet->primaryButton()->isEnabled());
    EXPECT_EQ(sheet->primaryButton()->toolTip(), plainToolTip(QStringLiteral("Enter <any> name.")));
    EXPECT_EQ(description(*sheet->primaryButton()), "Enter <any> name.");
    name("Boat");
    EXPECT_TRUE(sheet->primaryButton()->isEnabled());
    EXPECT_EQ(sheet->primaryButton()->toolTip(), QStringLiteral("Keep (Return)"));
    EXPECT_EQ(description(*sheet->primaryButton()), "Keep (Return)");
}

TEST_F(EditorSheets, SayItTooWhenReturnIsPressed) {
    open();
    press(Qt::Key_Return);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_TRUE(tells("Enter <any> name."));
    EXPECT_EQ(description(field("Name")), "Enter <any> name.");
    name("Boat");
    EXPECT_FALSE(tells("Enter <any> name."));
    press(Qt::Key_Return);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(sheet->result(), QDialog::Accepted);
    EXPECT_EQ(done, "saves ");
}

TEST_F(EditorSheets, OfferToDeleteWhatIsThere) {
    open();
    sheet->destructiveButton()->click();
    EXPECT_EQ(done, "deletes ");
    EXPECT_EQ(test.panels.confirmations.front().title, "Delete Thing?");
    editor = std::make_unique<ThingEditor>(*test);
    editor->isStored = false;
    open();
    EXPECT_EQ(sheet->destructiveButton(), nullptr);
}

TEST_F(EditorSheets, HaveNoSecondActionWhereTheEditorHasNone) {
    open();
    EXPECT_EQ(sheet->secondButton(), nullptr);
}

TEST_F(EditorSheets, DoTheSecondActionInsteadOfSaving) {
    openWithSecondAction();
    EXPECT_EQ(button("Skip").toolTip(), QStringLiteral("Leaves it for another day"));
    EXPECT_FALSE(button("Skip").isDefault());
    button("Skip").click();
    EXPECT_EQ(done, "skips ");
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(sheet->result(), QDialog::Accepted);
}

TEST_F(EditorSheets, PressTheSecondButtonThatHasTheKeyboardWithReturn) {
    openWithSecondAction();
    name("Boat");
    button("Skip").setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(done, "skips ");
}

TEST_F(EditorSheets, HaveTheSecondButtonBetweenCancelAndTheDefaultOne) {
    openWithSecondAction();
    name("Boat");
    std::vector<std::string> order;
    for (const QWidget* each : testing::tabOrder(*sheet)) {
        const auto* pressed = qobject_cast<const QPushButton*>(each);
        order.push_back(utf8(pressed != nullptr ? pressed->text() : each->accessibleName()));
    }
    std::ranges::rotate(order, std::ranges::find(order, "Name"));
    EXPECT_THAT(order, ElementsAre("Name", "Password", "Delete Thing", "Cancel", "Skip", "Keep"));
    EXPECT_THAT(testing::stepsAgainstReadingOrder(*sheet), IsEmpty());
    EXPECT_THAT(testing::namelessNodes(*sheet), IsEmpty());
}

TEST_F(EditorSheets, SayWhatKeepsTheSecondActionFromBeingDone) {
    editor->second = SecondAction{.title = "Skip", .help = {}, .obstacle = "Nothing is due."};
    open();
    EXPECT_FALSE(button("Skip").isEnabled());
    EXPECT_EQ(button("Skip").toolTip(), plainToolTip(QStringLiteral("Nothing is due.")));
    EXPECT_EQ(description(button("Skip")), "Nothing is due.");
    sheet->editor().second->obstacle.reset();
    name("Boat");
    EXPECT_TRUE(button("Skip").isEnabled());
    EXPECT_EQ(description(button("Skip")), "");
}

TEST_F(EditorSheets, AskBeforeASecondActionThatWantsIt) {
    editor->second = SecondAction{
        .title = "Skip", .help = {}, .confirmation = ConfirmationRequest{.title = "Skip it?"}};
    open();
    test.panels.confirms = false;
    button("Skip").click();
    EXPECT_EQ(test.panels.confirmations.back().title, "Skip it?");
    EXPECT_EQ(done, "");
    EXPECT_TRUE(sheet->isVisible());
    test.panels.confirms = true;
    button("Skip").click();
    EXPECT_EQ(done, "skips ");
    EXPECT_FALSE(sheet->isVisible());
}

TEST_F(EditorSheets, StayOpenAndSayWhyWhenSavingFails) {
    open();
    name("Broken");
    press(Qt::Key_Return);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_TRUE(tells("It is broken."));
    name("Mended");
    EXPECT_FALSE(tells("It is broken."));
    press(Qt::Key_Return);
    EXPECT_FALSE(sheet->isVisible());
}

TEST_F(EditorSheets, SayWhatTheyDoAndTakeNothingElseWhileTheyWork) {
    startWork();
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_TRUE(tells("Encrypting…"));
    EXPECT_EQ(description(*sheet), "Encrypting…");
    EXPECT_TRUE(sheet->hasFocus());
    for (const QWidget* each : {static_cast<const QWidget*>(&field("Name")),
                                static_cast<const QWidget*>(&field("Password")),
                                static_cast<const QWidget*>(sheet->primaryButton()),
                                static_cast<const QWidget*>(sheet->cancelButton()),
                                static_cast<const QWidget*>(sheet->destructiveButton())}) {
        EXPECT_FALSE(each->isEnabled());
    }
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(done, "saves ");
}

TEST_F(EditorSheets, CloseOnceTheWorkIsDone) {
    startWork();
    test.scheduler.runBackground();
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(sheet->result(), QDialog::Accepted);
}

TEST_F(EditorSheets, ComeBackAsTheyWereWhenTheWorkFails) {
    editor->failure = "That password is incorrect.";
    startWork();
    test.scheduler.runBackground();
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_FALSE(tells("Encrypting…"));
    EXPECT_EQ(description(*sheet), "Called Boat");
    EXPECT_TRUE(tells("That password is incorrect."));
    EXPECT_TRUE(field("Password").hasFocus());
    EXPECT_EQ(field("Password").text(), QStringLiteral("paddle"));
    EXPECT_TRUE(sheet->primaryButton()->isEnabled());
    EXPECT_TRUE(sheet->cancelButton()->isEnabled());
    press(Qt::Key_Return);
    EXPECT_EQ(done, "saves saves ");
}

TEST_F(EditorSheets, ThatAreGoneDoNotHearOfTheirWork) {
    startWork();
    sheet.reset();
    EXPECT_NO_FATAL_FAILURE(test.scheduler.runBackground());
    EXPECT_EQ(done, "saves ");
}

} // namespace
} // namespace oakfen

#include "Oakfen/Platform/QtPanels.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTreeView>
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Tests/Oakfen/Widgets/Settle.h"

namespace oakfen {
namespace {

using testing::settle;

/// File panels over a window, in the empty home folder of the tests.
class QtPanelsWindow : public ::testing::Test {
protected:
    QtPanelsWindow() {
        window.show();
        panels.setWindow(&window);
    }
    ~QtPanelsWindow() override {
        QDir::home().rmdir(QStringLiteral("Downloads"));
        QDir::home().rmdir(QStringLiteral("Documents"));
    }

    [[nodiscard]] QFileDialog* shown() const {
        QApplication::processEvents();
        return window.findChild<QFileDialog*>();
    }
    void openFile() {
        panels.openFile(
            {.title = "Import",
             .message = "Choose a <statement>.",
             .extensions = {"csv", "qif"},
             .extensionsName = "Statements"},
            [this](const std::optional<std::string>& path) { answers.push_back(path); });
    }
    /// Chooses the file in the panel that is open.
    void accept(const QString& file) {
        QDialog* dialog = shown();
        shown()->findChild<QLineEdit*>()->setText(file);
        dialog->done(QDialog::Accepted);
        settle();
    }
    void openFolder() {
        panels.openFolder(
            {.title = "Choose a Folder",
             .message = "Backups are kept there.",
             .confirmTitle = "Use Folder"},
            [this](const std::optional<std::string>& path) { answers.push_back(path); });
    }
    void saveFile() {
        panels.saveFile(
            {.title = "Export",
             .suggestedName = "Oakfen Transactions.csv",
             .extension = "csv",
             .extensionName = "Comma-separated text"},
            [this](const std::optional<std::string>& path) { answers.push_back(path); });
    }

    QWidget window;
    QtPanels panels;
    std::vector<std::optional<std::string>> answers;
};

TEST_F(QtPanelsWindow, BeginInTheHomeFolderWithoutAFolderForDownloads) {
    openFile();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->directory().absolutePath(), QDir::homePath());
}

TEST_F(QtPanelsWindow, BeginWhereDownloadsAreKept) {
    QDir::home().mkdir(QStringLiteral("Downloads"));
    openFile();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->directory().absolutePath(),
              QDir::home().filePath(QStringLiteral("Downloads")));
}

TEST_F(QtPanelsWindow, SuggestANameInThatFolder) {
    saveFile();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->directory().absolutePath(), QDir::homePath());
    EXPECT_EQ(shown()->selectedFiles().value(0),
              QDir::home().filePath(QStringLiteral("Oakfen Transactions.csv")));
}

TEST_F(QtPanelsWindow, SayWhatToChooseAndOfferItsKindsAndAllFiles) {
    openFile();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->windowTitle(), QStringLiteral("Import"));
    EXPECT_EQ(shown()->nameFilters(),
              (QStringList{QStringLiteral("Statements (*.csv *.CSV *.qif *.QIF)"),
                           QStringLiteral("All Files (*)")}));
    const auto labels = shown()->findChildren<QLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [](const QLabel* label) {
        return label->text() == QStringLiteral("Choose a <statement>.") &&
               label->textFormat() == Qt::PlainText;
    }));
}

TEST_F(QtPanelsWindow, AnswerWithTheChosenFileAndBeginThereNextTime) {
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("März & Co.csv"));
    QFile(file).open(QIODevice::WriteOnly);
    openFile();
    ASSERT_NE(shown(), nullptr);
    shown()->setDirectory(folder.path());
    shown()->selectFile(file);
    shown()->findChild<QLineEdit*>()->setText(file);
    static_cast<QDialog*>(shown())->done(QDialog::Accepted);
    EXPECT_EQ(answers, (std::vector<std::optional<std::string>>{utf8(file)}));
    settle();
    openFile();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->directory().absolutePath(), folder.path());
}

TEST_F(QtPanelsWindow, RememberTheFolderOfEachKindOfFileAcrossStarts) {
    QTemporaryDir statements;
    QTemporaryDir exports;
    openFile();
    ASSERT_NE(shown(), nullptr);
    accept(statements.filePath(QStringLiteral("march.csv")));
    saveFile();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->directory().absolutePath(), QDir::homePath());
    accept(exports.filePath(QStringLiteral("all.csv")));

    QtPanels nextStart;
    nextStart.setWindow(&window);
    nextStart.openFile({.title = "Import", .extensions = {"csv"}}, [](const auto&) {});
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->directory().absolutePath(), statements.path());
    shown()->reject();
    settle();
    saveFile();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->directory().absolutePath(), exports.path());
}

TEST_F(QtPanelsWindow, RememberNoNameOfAFile) {
    QTemporaryDir folder;
    openFile();
    ASSERT_NE(shown(), nullptr);
    accept(folder.filePath(QStringLiteral("Ann Smith 4711.csv")));
    QFile state(qEnvironmentVariable("XDG_STATE_HOME") + QStringLiteral("/Oakfen/Window.ini"));
    ASSERT_TRUE(state.open(QIODevice::ReadOnly));
    const QByteArray kept = state.readAll();
    EXPECT_TRUE(kept.contains(folder.path().toUtf8()));
    EXPECT_FALSE(kept.contains("4711"));
}

TEST_F(QtPanelsWindow, BeginWhereDocumentsAreKeptOnceTheRememberedFolderHasGone) {
    QDir::home().mkdir(QStringLiteral("Documents"));
    {
        const QTemporaryDir gone;
        saveFile();
        ASSERT_NE(shown(), nullptr);
        accept(gone.filePath(QStringLiteral("all.csv")));
    }
    saveFile();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->directory().absolutePath(),
              QDir::home().filePath(QStringLiteral("Documents")));
}

TEST_F(QtPanelsWindow, NameTheKindsOfFileWithoutTheirEndings) {
    openFile();
    ASSERT_NE(shown(), nullptr);
    const auto* kinds = shown()->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    ASSERT_NE(kinds, nullptr);
    EXPECT_EQ(kinds->itemText(0), QStringLiteral("Statements"));
    EXPECT_EQ(kinds->itemText(1), QStringLiteral("All Files"));
}

TEST_F(QtPanelsWindow, AreWideEnoughForAllTheirColumns) {
    openFile();
    ASSERT_NE(shown(), nullptr);
    EXPECT_GE(shown()->width(), 800);
    const auto* details = shown()->findChild<QTreeView*>(QStringLiteral("treeView"));
    ASSERT_NE(details, nullptr);
    EXPECT_TRUE(details->isVisible());
    EXPECT_FALSE(details->horizontalScrollBar()->isVisible());
    EXPECT_LE(details->header()->length(), details->viewport()->width());
    const QAbstractItemView& view = *details;
    for (int column = 1; column < details->header()->count(); ++column) {
        EXPECT_GE(details->header()->sectionSize(column), view.sizeHintForColumn(column)) << column;
    }
}

TEST_F(QtPanelsWindow, AnswerWithNothingWhenTheyAreDismissed) {
    openFile();
    ASSERT_NE(shown(), nullptr);
    shown()->reject();
    settle();
    saveFile();
    ASSERT_NE(shown(), nullptr);
    shown()->reject();
    EXPECT_EQ(answers, (std::vector<std::optional<std::string>>{std::nullopt, std::nullopt}));
}

TEST_F(QtPanelsWindow, TellWhenTheWindowIsFreeAgain) {
    int notices = 0;
    const Subscription subscription = panels.ended.observe([&] {
        EXPECT_FALSE(panels.isAsking());
        ++notices;
    });
    openFile();
    ASSERT_NE(shown(), nullptr);
    EXPECT_TRUE(panels.isAsking());
    EXPECT_EQ(notices, 0);
    shown()->reject();
    settle();
    EXPECT_EQ(notices, 1);
}

TEST_F(QtPanelsWindow, OfferFoldersOnlyWhereAFolderIsChosen) {
    openFolder();
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->windowTitle(), QStringLiteral("Choose a Folder"));
    EXPECT_EQ(shown()->fileMode(), QFileDialog::Directory);
    EXPECT_TRUE(shown()->testOption(QFileDialog::ShowDirsOnly));
    EXPECT_EQ(shown()->labelText(QFileDialog::Accept), QStringLiteral("Use Folder"));
}

TEST_F(QtPanelsWindow, AnswerWithTheChosenFolder) {
    QTemporaryDir folder;
    openFolder();
    ASSERT_NE(shown(), nullptr);
    shown()->findChild<QLineEdit*>()->setText(folder.path());
    static_cast<QDialog*>(shown())->done(QDialog::Accepted);
    EXPECT_EQ(answers, (std::vector<std::optional<std::string>>{utf8(folder.path())}));
}

TEST_F(QtPanelsWindow, AddTheExtensionToANameWithoutOne) {
    saveFile();
    ASSERT_NE(shown(), nullptr);
    shown()->findChild<QLineEdit*>()->setText(QStringLiteral("all"));
    EXPECT_EQ(shown()->selectedFiles().value(0), QDir::home().filePath(QStringLiteral("all.csv")));
}

TEST_F(QtPanelsWindow, NameTheRecordOfAQuestionUnderItsText) {
    panels.confirm({.title = "Delete 1 transaction?",
                    .message = "You can undo this.",
                    .confirmTitle = "Delete",
                    .subject = "“<b>Shop</b>”, $1.00"},
                   [](bool /*isConfirmed*/) {});
    const auto* box = window.findChild<QMessageBox*>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(utf8(box->text()), "Delete 1 transaction?");
    EXPECT_EQ(utf8(box->informativeText()), "You can undo this.\n“<b>Shop</b>”, $1.00");
}

} // namespace
} // namespace oakfen

#include "Oakfen/Platform/QtPanels.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>

#include "Oakfen/Widgets/Bridge.h"

namespace oakfen {
namespace {

/// File panels over a window, in the empty home folder of the tests.
class QtPanelsWindow : public ::testing::Test {
protected:
    QtPanelsWindow() {
        window.show();
        panels.setWindow(&window);
    }
    ~QtPanelsWindow() override { QDir::home().rmdir(QStringLiteral("Downloads")); }

    [[nodiscard]] QFileDialog* shown() const {
        QApplication::processEvents();
        return window.findChild<QFileDialog*>();
    }
    void openFile() {
        panels.openFile({.title = "Import", .extensions = {"csv"}, .extensionsName = "Statements"},
                        [](const std::optional<std::string>&) {});
    }

    QWidget window;
    QtPanels panels;
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
    panels.saveFile({.title = "Export",
                     .suggestedName = "Oakfen Transactions.csv",
                     .extension = "csv",
                     .extensionName = "Comma-separated text"},
                    [](const std::optional<std::string>&) {});
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->directory().absolutePath(), QDir::homePath());
    EXPECT_EQ(shown()->selectedFiles().value(0),
              QDir::home().filePath(QStringLiteral("Oakfen Transactions.csv")));
}

} // namespace
} // namespace oakfen

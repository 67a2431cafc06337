#include "Oakfen/FileActions.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::amount;
using testing::makeAccount;
using testing::TestEnvironment;

/// Long enough for whatever waits to look around once.
constexpr double lookingTime = 1;
constexpr const char* statement = "Date,Payee,Amount\n2026-03-01,Grocer,-12.34\n";

class FileActionsTest : public ::testing::Test {
protected:
    FileActionsTest() {
        test.store->mutate("New Account", [this](Library& library) {
            upsert(library, first);
            upsert(library, second);
        });
    }
    void importFile(const std::string& path, const std::string& bytes) {
        writeOwnerOnly(test.files, bytes, path);
        test.panels.path = path;
        FileActions::importTransactions(*test);
    }
    [[nodiscard]] std::shared_ptr<const ImportSession> session() const {
        const auto* review =
            test.appState->sheet()
                ? std::get_if<ActiveSheet::ImportReview>(&test.appState->sheet()->content)
                : nullptr;
        return review == nullptr ? nullptr : review->session;
    }

    Account first = makeAccount("Everyday");
    Account second = makeAccount("Spare");
    TestEnvironment test;
};

TEST_F(FileActionsTest, AsksForAStatement) {
    FileActions::importTransactions(*test);
    ASSERT_EQ(test.panels.openRequests.size(), 1U);
    EXPECT_EQ(test.panels.openRequests[0].title, "Import Transactions");
    EXPECT_EQ(test.panels.openRequests[0].message,
              "Choose a CSV, QIF, OFX or QFX statement downloaded from your bank.");
    EXPECT_FALSE(test.appState->busyMessage());
    EXPECT_FALSE(test.appState->sheet());
}

TEST_F(FileActionsTest, OpensTheReviewWithTheLines) {
    importFile("/home/ann/Downloads/March.csv", statement);
    EXPECT_TRUE(test.appState->busyMessage());
    EXPECT_FALSE(test.appState->sheet());
    test.scheduler.runBackground();
    EXPECT_FALSE(test.appState->busyMessage());
    ASSERT_NE(session(), nullptr);
    EXPECT_EQ(session()->fileName, "March.csv");
    ASSERT_EQ(session()->items.size(), 1U);
    EXPECT_EQ(session()->items[0].payee, "Grocer");
    EXPECT_EQ(session()->items[0].amount, amount("-12.34"));
    EXPECT_EQ(session()->accountID, first.id);
    EXPECT_NE(session()->id, UUID{});
}

TEST_F(FileActionsTest, AimsAtTheSelectedAccount) {
    test.appState->setSelection(SidebarItem::account(second.id));
    importFile("/home/ann/March.csv", statement);
    test.scheduler.runBackground();
    ASSERT_NE(session(), nullptr);
    EXPECT_EQ(session()->accountID, second.id);
}

TEST_F(FileActionsTest, AimsAtTheAccountThatWasSelectedWhenTheFileWasChosen) {
    test.appState->setSelection(SidebarItem::account(second.id));
    importFile("/home/ann/March.csv", statement);
    test.appState->setSelection(SidebarItem::account(first.id));
    test.scheduler.runBackground();
    ASSERT_NE(session(), nullptr);
    EXPECT_EQ(session()->accountID, second.id);
}

TEST_F(FileActionsTest, AimsAtTheFirstOpenAccountWhenTheSelectedOneIsGone) {
    test.appState->setSelection(SidebarItem::account(UUID::random()));
    importFile("/home/ann/March.csv", statement);
    test.scheduler.runBackground();
    ASSERT_NE(session(), nullptr);
    EXPECT_EQ(session()->accountID, first.id);
}

TEST_F(FileActionsTest, TakesTheFormatFromTheExtensionInAnyCase) {
    importFile("/home/ann/March.2026.CSV", statement);
    test.scheduler.runBackground();
    EXPECT_NE(session(), nullptr);
}

TEST_F(FileActionsTest, RefusesAFileOfAnotherKind) {
    importFile("/home/ann/March.pdf", statement);
    EXPECT_EQ(test.appState->alertMessage(), "Choose a CSV, QIF, OFX or QFX file.");
    EXPECT_FALSE(test.appState->busyMessage());
}

TEST_F(FileActionsTest, RefusesAFileWithoutAnExtension) {
    importFile("/home/ann.csv/March", statement);
    EXPECT_EQ(test.appState->alertMessage(), "Choose a CSV, QIF, OFX or QFX file.");
}

TEST_F(FileActionsTest, RefusesAFileThatIsTooLargeBeforeReadingIt) {
    importFile("/home/ann/March.csv", std::string(StatementImporter::maxBytes + 1, ' '));
    EXPECT_EQ(test.appState->alertMessage(), "The file is larger than 25 MB.");
    EXPECT_FALSE(test.appState->busyMessage());
}

TEST_F(FileActionsTest, RefusesWhatIsNoFile) {
    test.files.addFolder("/folder.csv");
    test.panels.path = "/folder.csv";
    FileActions::importTransactions(*test);
    EXPECT_EQ(test.appState->alertMessage(), "The file couldn’t be read as text.");
}

TEST_F(FileActionsTest, RefusesAFileThatIsNotThere) {
    test.panels.path = "/home/ann/gone.csv";
    FileActions::importTransactions(*test);
    EXPECT_EQ(test.appState->alertMessage(), "The file couldn’t be read as text.");
}

TEST_F(FileActionsTest, TellsWhenNothingWasFound) {
    importFile("/home/ann/March.csv", "Date,Payee,Amount\n");
    test.scheduler.runBackground();
    EXPECT_EQ(test.appState->alertMessage(), "No transactions were found in the file.");
    EXPECT_FALSE(test.appState->busyMessage());
    EXPECT_FALSE(test.appState->sheet());
}

TEST_F(FileActionsTest, RefusesAFileThatVanishesBeforeItIsRead) {
    importFile("/home/ann/March.csv", statement);
    test.files.remove("/home/ann/March.csv");
    test.scheduler.runBackground();
    EXPECT_EQ(test.appState->alertMessage(), "The file couldn’t be read as text.");
    EXPECT_FALSE(test.appState->sheet());
}

TEST_F(FileActionsTest, RefusesAFileThatMayNotBeRead) {
    importFile("/home/ann/March.csv", statement);
    test.files.failAll(InMemoryFileSystem::Call::open, EACCES);
    test.scheduler.runBackground();
    EXPECT_EQ(test.appState->alertMessage(), "The file couldn’t be read as text.");
    EXPECT_FALSE(test.appState->busyMessage());
}

TEST_F(FileActionsTest, ShowsANameThatTurnsTheWritingRoundWithAnEscape) {
    importFile("/home/ann/vsc.\u202Ehcram.csv", statement);
    EXPECT_EQ(test.appState->busyMessage(), "Reading vsc.\\u202Ehcram.csv…");
}

TEST_F(FileActionsTest, ReadsOneStatementAtATimeAndTheNextOneInItsTurn) {
    importFile("/home/ann/March.csv", statement);
    importFile("/home/ann/April.csv", statement);
    test.scheduler.runBackground();
    ASSERT_NE(session(), nullptr);
    EXPECT_EQ(session()->fileName, "March.csv");
    test.scheduler.advance(lookingTime);
    EXPECT_EQ(session()->fileName, "March.csv");
    test.appState->setSheet(std::nullopt);
    test.scheduler.advance(lookingTime);
    ASSERT_NE(session(), nullptr);
    EXPECT_EQ(session()->fileName, "April.csv");
}

TEST_F(FileActionsTest, NeverPutsAnEditorAwayThatWasOpenedMeanwhile) {
    importFile("/home/ann/March.csv", statement);
    const ActiveSheet editor{ActiveSheet::EditAccount{first.id}};
    test.appState->setSheet(editor);
    test.scheduler.advance(lookingTime);
    EXPECT_EQ(test.appState->sheet(), editor);
    EXPECT_FALSE(test.appState->busyMessage());
    test.appState->setSheet(std::nullopt);
    test.scheduler.advance(lookingTime);
    ASSERT_NE(session(), nullptr);
    EXPECT_EQ(session()->fileName, "March.csv");
}

TEST_F(FileActionsTest, ShowsNoReviewOverAQuestion) {
    importFile("/home/ann/March.csv", statement);
    test.panels.asks = true;
    test.scheduler.advance(lookingTime);
    EXPECT_FALSE(test.appState->sheet());
    test.panels.endAsking();
    test.scheduler.advance(lookingTime);
    EXPECT_NE(session(), nullptr);
}

TEST_F(FileActionsTest, ShowsNoReviewOverTheLockedScreen) {
    test.defaults.set(settings::requireAuthentication, true);
    importFile("/home/ann/March.csv", statement);
    test.appState->setUnlocked(false);
    test.scheduler.advance(lookingTime);
    EXPECT_FALSE(test.appState->sheet());
    test.appState->setUnlocked(true);
    test.scheduler.advance(lookingTime);
    EXPECT_NE(session(), nullptr);
}

TEST_F(FileActionsTest, ImportsAStatementThatIsDropped) {
    writeOwnerOnly(test.files, statement, "/home/ann/March.csv");
    ASSERT_TRUE(FileActions::canTakeDroppedFiles(*test));
    FileActions::takeDroppedFiles(*test, {"/home/ann/March.csv"});
    test.scheduler.runBackground();
    ASSERT_NE(session(), nullptr);
    EXPECT_EQ(session()->fileName, "March.csv");
}

TEST_F(FileActionsTest, SaysWhatCanBeImportedWhenSeveralFilesAreDropped) {
    FileActions::takeDroppedFiles(*test, {"/home/ann/March.csv", "/home/ann/April.csv"});
    EXPECT_EQ(test.appState->alertMessage(), "Choose a CSV, QIF, OFX or QFX file.");
    EXPECT_FALSE(test.appState->busyMessage());
}

TEST_F(FileActionsTest, SaysWhatCanBeImportedWhenAnotherKindOfFileIsDropped) {
    FileActions::takeDroppedFiles(*test, {"/home/ann/March.pdf"});
    EXPECT_EQ(test.appState->alertMessage(), "Choose a CSV, QIF, OFX or QFX file.");
    test.appState->setAlertMessage(std::nullopt);
    // What is dropped from a web page has no path.
    FileActions::takeDroppedFiles(*test, {""});
    EXPECT_EQ(test.appState->alertMessage(), "Choose a CSV, QIF, OFX or QFX file.");
}

TEST_F(FileActionsTest, TakesNoDroppedFileWhileSomethingElseGoesOn) {
    test.busyWork->run(
        "Reading…", [] {}, [] {});
    EXPECT_FALSE(FileActions::canTakeDroppedFiles(*test));
    test.scheduler.runBackground();
    test.panels.asks = true;
    EXPECT_FALSE(FileActions::canTakeDroppedFiles(*test));
    test.panels.asks = false;
    test.appState->setSheet(ActiveSheet{ActiveSheet::NewAccount{}});
    EXPECT_FALSE(FileActions::canTakeDroppedFiles(*test));
    test.appState->setSheet(std::nullopt);
    test.defaults.set(settings::requireAuthentication, true);
    test.appState->setUnlocked(false);
    EXPECT_FALSE(FileActions::canTakeDroppedFiles(*test));
    FileActions::takeDroppedFiles(*test, {"/home/ann/March.pdf"});
    EXPECT_FALSE(test.appState->alertMessage());
}

TEST(FileActionsWithoutAccounts, TakeNoDroppedFile) {
    TestEnvironment test;
    EXPECT_FALSE(FileActions::canTakeDroppedFiles(*test));
}

} // namespace
} // namespace oakfen

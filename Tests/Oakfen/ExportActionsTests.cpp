#include <gtest/gtest.h>

#include <cerrno>

#include "Oakfen/FileActions.h"
#include "OakfenCore/Support/Files/WriteOwnerOnly.h"
#include "Tests/Oakfen/Views/Register/RegisterFixture.h"

namespace oakfen {
namespace {

using testing::RegisterFixture;
using testing::TestEnvironment;

class ExportActions : public RegisterFixture {
protected:
    ExportActions() { test.appState->setSelection(SidebarItem::account(everyday.id)); }

    void exportCSVTo(const std::string& path) {
        test.panels.path = path;
        FileActions::exportCSV(*test);
        test.scheduler.runBackground();
    }

    [[nodiscard]] std::string suggestedNameFor(const std::string& accountName) {
        test.store->mutate("Edit",
                           [&](Library& library) { library.accounts.edit(0).name = accountName; });
        FileActions::exportQIF(*test);
        return test.panels.saveRequests.back().suggestedName;
    }
};

TEST_F(ExportActions, SaveAllTransactionsAsCSV) {
    exportCSVTo("/home/ann/all.csv");
    ASSERT_EQ(test.panels.saveRequests.size(), 1U);
    EXPECT_EQ(test.panels.saveRequests[0].suggestedName, "Oakfen Transactions.csv");
    EXPECT_EQ(test.panels.saveRequests[0].extension, "csv");
    EXPECT_EQ(readFile(test.files, "/home/ann/all.csv"),
              "Date,Account,Num,Payee,Category,Memo,Amount,Status,Tags\n"
              "2026-02-01,Card,,Card Company,[Everyday],,500,Uncleared,\n"
              "2026-02-01,Everyday,,Card Company,[Card],,-500,Reconciled,\n"
              "2026-02-14,Everyday,,Shop,Food,,-40,Cleared,\n"
              "2026-03-10,Everyday,,Pay,Uncategorized,,1000,Uncleared,\n"
              "2026-03-16,Everyday,,Rent,Uncategorized,,-1200,Uncleared,\n");
}

TEST_F(ExportActions, SayWhereTheFileIsAndShowItThere) {
    exportCSVTo("/home/ann/all.csv");
    ASSERT_TRUE(test.appState->notice());
    EXPECT_EQ(test.appState->notice()->text, "Exported to “all.csv”");
    EXPECT_EQ(test.appState->notice()->actionTitle, "Show in Files");
    test.appState->notice()->action();
    EXPECT_EQ(test.panels.shownInFiles, (std::vector<std::string>{"/home/ann/all.csv"}));
}

TEST_F(ExportActions, SaveTheSelectedAccountAsQIF) {
    test.appState->setSelection(SidebarItem::account(card.id));
    test.panels.path = "/home/ann/card.qif";
    FileActions::exportQIF(*test);
    test.scheduler.runBackground();
    ASSERT_EQ(test.panels.saveRequests.size(), 1U);
    EXPECT_EQ(test.panels.saveRequests[0].suggestedName, "Card.qif");
    EXPECT_EQ(test.panels.saveRequests[0].extension, "qif");
    EXPECT_EQ(readFile(test.files, "/home/ann/card.qif"),
              "!Type:CCard\nD02/01/2026\nT500\nPCard Company\nL[Everyday]\n^\n");
}

TEST_F(ExportActions, ShowThePillWhileTheFileIsWritten) {
    test.panels.path = "/home/ann/all.csv";
    FileActions::exportCSV(*test);
    EXPECT_EQ(test.appState->busyMessage(), "Saving all.csv…");
    EXPECT_FALSE(fileExists(test.files, "/home/ann/all.csv"));
    test.scheduler.runBackground();
    EXPECT_FALSE(test.appState->busyMessage());
    EXPECT_FALSE(test.appState->alertMessage());
}

TEST_F(ExportActions, WriteOneFileAtATime) {
    test.panels.path = "/home/ann/all.csv";
    FileActions::exportCSV(*test);
    test.panels.path = "/home/ann/everyday.qif";
    FileActions::exportQIF(*test);
    EXPECT_EQ(test.appState->busyMessage(), "Saving all.csv…");
    bool wasFirstAlone = false;
    const auto subscription = test.appState->busyChanged.observe([&] {
        wasFirstAlone = wasFirstAlone || (fileExists(test.files, "/home/ann/all.csv") &&
                                          !fileExists(test.files, "/home/ann/everyday.qif"));
    });
    test.scheduler.runBackground();
    EXPECT_TRUE(wasFirstAlone);
    EXPECT_TRUE(fileExists(test.files, "/home/ann/everyday.qif"));
    EXPECT_FALSE(test.appState->busyMessage());
}

TEST_F(ExportActions, WriteNothingWhenThePanelIsDismissed) {
    FileActions::exportCSV(*test);
    EXPECT_FALSE(test.appState->busyMessage());
    EXPECT_EQ(test.panels.saveRequests.size(), 1U);
}

TEST_F(ExportActions, SaveWhatTheLedgerWasWhenTheyBegan) {
    test.panels.holdsAnswers = true;
    test.panels.path = "/home/ann/all.csv";
    FileActions::exportCSV(*test);
    test.store->mutate("Clear", [](Library& library) { library.transactions = {}; });
    test.panels.pending.at(0)();
    test.scheduler.runBackground();
    EXPECT_NE(readFile(test.files, "/home/ann/all.csv").find("Rent"), std::string::npos);
}

TEST_F(ExportActions, SayWhyAFileCouldNotBeSaved) {
    test.files.failAll(InMemoryFileSystem::Call::write, ENOSPC);
    exportCSVTo("/home/ann/all.csv");
    ASSERT_TRUE(test.appState->alertMessage());
    EXPECT_NE(test.appState->alertMessage()->find("all.csv"), std::string::npos);
    EXPECT_NE(test.appState->alertMessage()->find("the disk is full"), std::string::npos);
    EXPECT_FALSE(test.appState->notice());
    EXPECT_FALSE(test.appState->busyMessage());
}

TEST_F(ExportActions, SayWhenTheFolderMayNotBeWritten) {
    test.files.addFolder("/usr/share", 0500);
    exportCSVTo("/usr/share/all.csv");
    ASSERT_TRUE(test.appState->alertMessage());
    EXPECT_NE(test.appState->alertMessage()->find("you don’t have permission"), std::string::npos);
}

TEST_F(ExportActions, LeaveAnEarlierFileWholeWhenTheyFail) {
    writeOwnerOnly(test.files, "before", "/home/ann/all.csv");
    test.files.failAll(InMemoryFileSystem::Call::sync, EIO);
    exportCSVTo("/home/ann/all.csv");
    EXPECT_TRUE(test.appState->alertMessage());
    EXPECT_EQ(readFile(test.files, "/home/ann/all.csv"), "before");
}

TEST_F(ExportActions, NeverReplaceTheDataFile) {
    const std::string before = readFile(test.files, TestEnvironment::dataFile);
    exportCSVTo(TestEnvironment::dataFile);
    EXPECT_EQ(test.appState->alertMessage(),
              "“Library.tarnwick” is your data file. Choose another name for the export.");
    EXPECT_EQ(readFile(test.files, TestEnvironment::dataFile), before);
}

TEST_F(ExportActions, ShowANameThatWouldBreakTheirMessagesWithEscapes) {
    test.panels.path = "/home/ann/a\nb.csv";
    FileActions::exportCSV(*test);
    EXPECT_EQ(test.appState->busyMessage(), "Saving a\\nb.csv…");
    test.files.failAll(InMemoryFileSystem::Call::write, ENOSPC);
    test.scheduler.runBackground();
    EXPECT_EQ(test.appState->alertMessage(), "“a\\nb.csv” couldn’t be saved: the disk is full");
}

TEST_F(ExportActions, NameTheAccountInTheTitleOfTheirPanel) {
    (void)suggestedNameFor("Every\tday");
    EXPECT_EQ(test.panels.saveRequests.back().title, "Export “Every\\tday”");
}

TEST_F(ExportActions, DoNothingWithoutASelectedAccount) {
    test.appState->setSelection(SidebarItem{});
    FileActions::exportQIF(*test);
    test.appState->setSelection(SidebarItem::account(UUID::random()));
    FileActions::exportQIF(*test);
    EXPECT_TRUE(test.panels.saveRequests.empty());
}

TEST_F(ExportActions, SuggestANameThatAFileCanHave) {
    EXPECT_EQ(suggestedNameFor("Joint: Ann/Bob"), "Joint- Ann-Bob.qif");
    EXPECT_EQ(suggestedNameFor("two\nlines"), "two-lines.qif");
    EXPECT_EQ(suggestedNameFor("two\r\nlines"), "two-lines.qif");
    EXPECT_EQ(suggestedNameFor("..hidden"), "-.hidden.qif");
    EXPECT_EQ(suggestedNameFor(" Épargne d’été "), "Épargne d’été.qif");
    EXPECT_EQ(suggestedNameFor("  "), "Account.qif");
}

TEST_F(ExportActions, CutALongNameBetweenItsCharacters) {
    std::string name;
    for (int count = 0; count < 150; ++count) {
        name += "é";
    }
    const std::string suggested = suggestedNameFor(name);
    EXPECT_EQ(suggested, name.substr(0, 200) + ".qif");
}

} // namespace
} // namespace oakfen

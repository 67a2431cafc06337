#include "Oakfen/ForeignFile.h"

#include <gtest/gtest.h>

#include "Oakfen/FileActions.h"
#include "OakfenCore/LibraryOperations/Accounts.h"
#include "OakfenCore/Testing/InMemoryFileSystem.h"
#include "Tests/Support/TestEnvironment.h"

namespace oakfen {
namespace {

using testing::makeAccount;
using testing::TestEnvironment;

TEST(ForeignFile, OffersToImportAStatement) {
    InMemoryFileSystem files;
    files.addFile("/home/ann/bank.csv", "Date,Payee,Amount\n");
    const ForeignFile file = describeForeignFile(files, "/home/ann/bank.csv");
    EXPECT_TRUE(file.isStatement);
    EXPECT_EQ(file.title, "“bank.csv” isn’t an Oakfen data file");
    EXPECT_EQ(file.message, "It looks like a bank’s statement (CSV). It stays as it is. Its "
                            "transactions can be imported into your data file.");
}

TEST(ForeignFile, SaysWhatElseWasNamed) {
    InMemoryFileSystem files;
    files.addFile("/photo.jpg", "\xff\xd8");
    files.addFile("/nothing", "");
    files.addFolder("/folder");
    EXPECT_EQ(describeForeignFile(files, "/photo.jpg").message,
              "It was made by another program. It stays as it is.");
    EXPECT_EQ(describeForeignFile(files, "/nothing").message, "It is empty. It stays as it is.");
    EXPECT_EQ(describeForeignFile(files, "/folder").message,
              "It is a folder. Name the data file in it.");
    EXPECT_EQ(describeForeignFile(files, "/typo.csv").title, "“typo.csv” isn’t there");
    EXPECT_FALSE(describeForeignFile(files, "/typo.csv").isStatement);
}

TEST(ImportWhenReady, WaitsForAnAccountAndSaysSo) {
    TestEnvironment test;
    test.files.addFile("/bank.csv", "Date,Payee,Amount\n2026-03-01,Shop,-5.00\n");
    FileActions::importStatementWhenReady(*test, "/bank.csv");
    ASSERT_TRUE(test.appState->notice());
    EXPECT_EQ(test.appState->notice()->text,
              "“bank.csv” is imported as soon as there is an open account.");
    test.store->mutate("New Account",
                       [](Library& library) { upsert(library, makeAccount("Everyday")); });
    test.scheduler.advance(1);
    test.scheduler.runBackground();
    EXPECT_FALSE(test.appState->notice());
    ASSERT_TRUE(test.appState->sheet());
    EXPECT_TRUE(std::holds_alternative<ActiveSheet::ImportReview>(test.appState->sheet()->content));
}

} // namespace
} // namespace oakfen

#include <cerrno>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/Platform/FileUserDefaults.h"
#include "Tests/OakfenCore/LibraryStore/StoreFixture.h"

namespace oakfen {
namespace {

using testing::ElementsAre;

class RetryLoadingTest : public StoreTest {};

TEST_F(RetryLoadingTest, OpensAFileThatHasBecomeReadable) {
    files.addFile(path, encodeLibrary(withAccount("Chequing")), 0000);
    choosePlain();
    LibraryStore& store = open();
    ASSERT_EQ(store.accessState().kind, Kind::legacyUnavailable);
    addAccount(store, "Placeholder");
    files.setPermissions(path, 0600);
    store.retryLoading();
    EXPECT_TRUE(store.accessState().isOpen());
    EXPECT_EQ(store.library(), withAccount("Chequing"));
    EXPECT_EQ(store.index().library(), withAccount("Chequing"));
    EXPECT_FALSE(undo->canUndo());
}

TEST_F(RetryLoadingTest, DoesNotWriteEditsOfTheDocumentThatItReplaced) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    addAccount(store, "Savings");
    files.addFile(path, encodeLibrary(withAccount("Other")));
    store.retryLoading();
    EXPECT_FALSE(store.hasUnsavedChanges());
    scheduler.advance(1);
    EXPECT_EQ(onDisk(), withAccount("Other"));
    EXPECT_EQ(writeCount(), 0);
}

TEST_F(RetryLoadingTest, KeepsTheDocumentInMemoryWhenTheFileIsLocked) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    addAccount(store, "Savings");
    const Library before = store.library();
    files.addFile(path, "OAKFEN-ENC-3");
    store.retryLoading();
    EXPECT_EQ(store.accessState().kind, Kind::locked);
    EXPECT_EQ(store.library(), before);
    EXPECT_TRUE(undo->canUndo());
    scheduler.advance(1);
    EXPECT_EQ(files.contents(path), "OAKFEN-ENC-3");
}

TEST_F(RetryLoadingTest, ClearsTheMessageWhenAllIsWell) {
    LibraryStore& store = openPlain();
    files.failAll(Call::write, ENOSPC);
    store.saveNow();
    files.stopFailing();
    ASSERT_TRUE(store.lastError().has_value());
    store.retryLoading();
    EXPECT_FALSE(store.lastError().has_value());
}

TEST_F(RetryLoadingTest, TakesADocumentThatHasAppearedForNoNewOne) {
    LibraryStore& store = open();
    ASSERT_TRUE(store.isNewLibrary());
    files.addFile(path, encodeLibrary(withAccount("Chequing")));
    store.retryLoading();
    EXPECT_FALSE(store.isNewLibrary());
    EXPECT_EQ(store.library(), withAccount("Chequing"));
}

TEST_F(RetryLoadingTest, FindsDamageLikeTheFirstTime) {
    LibraryStore& store = openPlain();
    files.addFile(path, "damaged");
    store.retryLoading();
    EXPECT_EQ(store.accessState().kind, Kind::needsPassword);
    EXPECT_TRUE(store.isNewLibrary());
    EXPECT_TRUE(store.lastError().has_value());
    EXPECT_EQ(files.contents(pathAside), "damaged");
}

TEST_F(RetryLoadingTest, TellsOfDocumentAndStatusOnceBothAreNew) {
    files.addFile(path, encodeLibrary(withAccount("Chequing")), 0000);
    choosePlain();
    LibraryStore& store = open();
    files.setPermissions(path, 0600);
    std::vector<std::string> notices;
    const auto check = [&](const std::string& notice) {
        notices.push_back(notice);
        EXPECT_TRUE(store.accessState().isOpen());
        EXPECT_EQ(store.index().library(), withAccount("Chequing"));
    };
    const Subscription document = store.libraryChanged.observe([&] { check("document"); });
    const Subscription status = store.statusChanged.observe([&] { check("status"); });
    store.retryLoading();
    EXPECT_THAT(notices, ElementsAre("document", "status"));
}

class StartOverTest : public StoreTest {};

TEST_F(StartOverTest, SetsTheFileAsideAndBeginsAnEmptyDocument) {
    files.addFile(path, "OAKFEN-ENC-3 locked");
    LibraryStore& store = open();
    store.startOver();
    EXPECT_EQ(files.contents(pathAside), "OAKFEN-ENC-3 locked");
    EXPECT_FALSE(files.contents(path).has_value());
    EXPECT_EQ(store.accessState(), AccessState{.kind = Kind::needsPassword});
    EXPECT_TRUE(store.isNewLibrary());
    EXPECT_EQ(store.library(), Library{.currencyCode = defaultCurrencyCode()});
    EXPECT_EQ(store.index().library(), store.library());
}

TEST_F(StartOverTest, ForgetsUndo) {
    LibraryStore& store = openPlain();
    addAccount(store, "Savings");
    store.startOver();
    EXPECT_FALSE(undo->canUndo());
}

TEST_F(StartOverTest, LeavesAMessageThatWasNotReadYet) {
    files.addFile(path, "damaged");
    LibraryStore& store = open();
    const std::optional<std::string> message = store.lastError();
    ASSERT_TRUE(message.has_value());
    store.startOver();
    EXPECT_EQ(store.lastError(), message);
}

TEST_F(StartOverTest, LeavesTheSavedPasswordAndTheChoiceAlone) {
    passwords.save("secret");
    LibraryStore& store = openPlain();
    store.startOver();
    EXPECT_EQ(passwords.load(), "secret");
    EXPECT_TRUE(defaults.get(settings::dataFileUnencrypted));
}

TEST_F(StartOverTest, SetsAsideWhatWasEditedLast) {
    LibraryStore& store = openPlain(withAccount("Chequing"));
    addAccount(store, "Savings");
    const Library edited = store.library();
    store.startOver();
    EXPECT_EQ(decodeLibrary(files.contents(pathAside).value_or("")), edited);
    scheduler.advance(1);
    EXPECT_FALSE(files.contents(path).has_value());
}

TEST_F(StartOverTest, NeverOverwritesAFileThatCouldNotBeMoved) {
    files.addFile(path, "OAKFEN-ENC-3 locked");
    files.addFile(pathAside, "damaged before");
    LibraryStore& store = open();
    store.startOver();
    EXPECT_EQ(files.contents(path), "OAKFEN-ENC-3 locked");
    EXPECT_THROW(store.useNoPassword(), FileError);
    EXPECT_EQ(files.contents(path), "OAKFEN-ENC-3 locked");
    clock.advance(1);
    store.useNoPassword();
    EXPECT_EQ(files.contents("/home/user/Tarnwick/Library.damaged-1700000001.tarnwick"),
              "OAKFEN-ENC-3 locked");
    EXPECT_EQ(onDisk(), store.library());
}

TEST_F(StartOverTest, WorksWithoutAFile) {
    LibraryStore& store = open(std::nullopt);
    addAccount(store, "Savings");
    store.startOver();
    EXPECT_EQ(accountCount(store), 0U);
}

class UseNoPasswordTest : public StoreTest {};

TEST_F(UseNoPasswordTest, WritesAPlainFileAndRemembersTheChoice) {
    LibraryStore& store = open();
    addAccount(store, "Savings");
    store.useNoPassword();
    EXPECT_EQ(onDisk(), store.library());
    EXPECT_TRUE(defaults.get(settings::dataFileUnencrypted));
    EXPECT_TRUE(store.accessState().isOpen());
    EXPECT_FALSE(store.isNewLibrary());
    EXPECT_FALSE(store.hasUnsavedChanges());
    scheduler.advance(1);
    EXPECT_EQ(writeCount(), 1);
    EXPECT_EQ(open().library(), onDisk());
}

TEST_F(UseNoPasswordTest, LetsTheChoiceReachTheDiskAtOnce) {
    const std::string settingsPath = "/home/user/Oakfen.conf";
    FileUserDefaults stored(files, scheduler, settingsPath);
    LibraryStore store(path, {files, scheduler, clock, stored, passwords, legacyKeys});
    store.useNoPassword();
    EXPECT_EQ(files.contents(settingsPath), "dataFileUnencrypted=true\n");
}

TEST_F(UseNoPasswordTest, ChangesNothingWhenTheFileCannotBeWritten) {
    passwords.save("secret");
    LibraryStore& store = open();
    int notices = 0;
    const Subscription subscription = store.statusChanged.observe([&] { ++notices; });
    files.failAll(Call::write, ENOSPC);
    try {
        store.useNoPassword();
        FAIL() << "nothing was thrown";
    } catch (const LocalizedError& error) {
        EXPECT_EQ(error.localizedDescription(),
                  "“Library.tarnwick” couldn’t be saved: the disk is full");
    }
    EXPECT_EQ(store.accessState().kind, Kind::needsPassword);
    EXPECT_TRUE(store.isNewLibrary());
    EXPECT_FALSE(defaults.string(LibraryStore::unencryptedKey).has_value());
    EXPECT_EQ(passwords.load(), "secret");
    EXPECT_TRUE(store.isPasswordSaved());
    EXPECT_FALSE(store.lastError().has_value());
    EXPECT_EQ(notices, 0);
}

TEST_F(UseNoPasswordTest, RemovesAStalePassword) {
    passwords.save("secret");
    LibraryStore& store = open();
    store.useNoPassword();
    EXPECT_FALSE(passwords.exists());
    EXPECT_FALSE(store.isPasswordSaved());
}

TEST_F(UseNoPasswordTest, OnlyTellsThatAStalePasswordCouldNotBeRemoved) {
    LibraryStore& store = open();
    passwords.failWith("The keyring is locked.");
    store.useNoPassword();
    EXPECT_TRUE(store.accessState().isOpen());
    EXPECT_EQ(store.lastError(),
              "Your password couldn’t be removed from the Keychain: The keyring is locked.");
}

TEST_F(UseNoPasswordTest, DoesNothingWhereNoChoiceIsAskedFor) {
    LibraryStore& store = openPlain();
    passwords.save("secret");
    store.useNoPassword();
    EXPECT_EQ(passwords.load(), "secret");
    EXPECT_EQ(writeCount(), 0);
}

TEST_F(UseNoPasswordTest, OpensADocumentInMemory) {
    LibraryStore& store = open(std::nullopt);
    store.useNoPassword();
    EXPECT_TRUE(store.accessState().isOpen());
    EXPECT_TRUE(defaults.get(settings::dataFileUnencrypted));
    EXPECT_TRUE(files.names("/home/user").empty());
}

TEST_F(UseNoPasswordTest, KeepsTheChoiceOfAnotherFileApart) {
    LibraryStore store("/home/user/other.tarnwick", services(), "dataFileUnencrypted:other");
    store.useNoPassword();
    EXPECT_TRUE(defaults.get(Setting<bool>{"dataFileUnencrypted:other", false}));
    EXPECT_FALSE(defaults.get(settings::dataFileUnencrypted));
    addAccount(store, "Savings");
    store.saveNow();
    EXPECT_FALSE(store.hasUnsavedChanges());
}

} // namespace
} // namespace oakfen

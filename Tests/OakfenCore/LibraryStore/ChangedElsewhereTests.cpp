// Another program, another computer or a sync tool puts other bytes into the data file while it is
// open: neither version may be lost, and nothing is decided over the person's head.
#include <cerrno>
#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/OakfenCore/LibraryStore/StoreFixture.h"
#include "Tests/OakfenCore/Support/Files/FileSystemFilter.h"

namespace oakfen {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const std::string changedText = "Couldn’t save: “Library.tarnwick” was changed by another program.";

class ChangedElsewhereTest : public StoreTest {
protected:
    static constexpr const char* unsaved =
        "/home/user/Tarnwick/Library.unsaved-1700000000.tarnwick";
    static constexpr const char* other = "/home/user/Tarnwick/Library.other-1700000000.tarnwick";

    static std::string theirs() { return encodeLibrary(withAccount("From elsewhere")); }
    static Library ours() {
        Library library = withAccount("Chequing");
        library.accounts.push_back(account("Savings"));
        return library;
    }

    /// Opens, lets the other program write, edits and lets the debounce end.
    LibraryStore& openAndCollide(const std::function<void()>& elsewhere) {
        LibraryStore& store = openPlain();
        elsewhere();
        addAccount(store, "Savings");
        scheduler.advance(1);
        return store;
    }
    LibraryStore& openAndCollide() {
        return openAndCollide([this] { files.addFile(path, theirs()); });
    }

    void expectKeptApart(const LibraryStore& store) {
        EXPECT_EQ(store.lastError(), changedText);
        EXPECT_TRUE(store.isChangedElsewhere());
        EXPECT_TRUE(store.hasUnsavedChanges());
        EXPECT_EQ(store.library(), ours());
        EXPECT_EQ(files.contents(path), theirs());
        EXPECT_EQ(files.contents(unsaved), encodeLibrary(ours()));
        EXPECT_THAT(
            files.names(folder),
            UnorderedElementsAre("Library.tarnwick", "Library.unsaved-1700000000.tarnwick"));
    }
    void expectSaved(const LibraryStore& store) {
        EXPECT_FALSE(store.lastError());
        EXPECT_FALSE(store.isChangedElsewhere());
        EXPECT_FALSE(store.hasUnsavedChanges());
        EXPECT_EQ(files.contents(path), encodeLibrary(store.library()));
    }

    static std::string messageOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const LocalizedError& error) {
            return error.localizedDescription();
        }
        return "";
    }
};

TEST_F(ChangedElsewhereTest, OtherBytesAreNotOverwritten) {
    expectKeptApart(openAndCollide());
}

TEST_F(ChangedElsewhereTest, EqualBytesInAnotherFileAreNoAlarm) {
    expectSaved(
        openAndCollide([this] { files.addFile(path, encodeLibrary(withAccount("Chequing"))); }));
}

TEST_F(ChangedElsewhereTest, EqualBytesOfAnotherTimeAreNoAlarm) {
    expectSaved(openAndCollide([this] { files.setModified(path, 123); }));
}

TEST_F(ChangedElsewhereTest, AChangeInPlaceThatKeepsTheSizeIsNoticed) {
    std::string bytes = encodeLibrary(withAccount("Chequing"));
    bytes.replace(bytes.find("Chequing"), 8, "Cheating");
    const LibraryStore& store = openAndCollide([&] { files.overwrite(path, bytes); });
    EXPECT_EQ(store.lastError(), changedText);
    EXPECT_EQ(files.contents(path), bytes);
}

TEST_F(ChangedElsewhereTest, ARestoredOlderFileWithAnEarlierTimeIsNoticed) {
    expectKeptApart(openAndCollide([this] {
        files.addFile(path, theirs());
        files.setModified(path, 1);
    }));
}

TEST_F(ChangedElsewhereTest, AFileInAReplacedFolderIsNoticed) {
    expectKeptApart(openAndCollide([this] {
        files.moveByAnotherProgram(folder, "/home/user/Tarnwick.old");
        files.addFile(path, theirs());
    }));
    EXPECT_EQ(files.contents("/home/user/Tarnwick.old/Library.tarnwick"),
              encodeLibrary(withAccount("Chequing")));
}

TEST_F(ChangedElsewhereTest, AFileThatAppearsWhereThereWasNoneIsNoticed) {
    choosePlain();
    LibraryStore& store = open();
    store.replaceLibrary(ours(), std::nullopt);
    files.addFile(path, theirs());
    EXPECT_EQ(messageOf([&] { store.useNoPassword(); }),
              "“Library.tarnwick” was changed by another program.");
    EXPECT_TRUE(store.isChangedElsewhere());
    EXPECT_EQ(store.accessState().kind, Kind::needsPassword);
    EXPECT_EQ(files.contents(path), theirs());
}

TEST_F(ChangedElsewhereTest, ItIsToldOnceNotAtEverySave) {
    LibraryStore& store = openAndCollide();
    store.clearError();
    addAccount(store, "Third");
    scheduler.advance(1);
    store.saveNow();
    EXPECT_FALSE(store.lastError());
    EXPECT_EQ(files.contents(path), theirs());
    EXPECT_EQ(files.contents(unsaved), encodeLibrary(store.library()));
    EXPECT_EQ(files.names(folder).size(), 2U);
}

TEST_F(ChangedElsewhereTest, LeavingWithoutAnEditLeavesTheOtherVersionWithoutAWord) {
    LibraryStore& store = openPlain();
    files.addFile(path, theirs());
    store.saveNow();
    EXPECT_FALSE(store.lastError());
    EXPECT_FALSE(store.isChangedElsewhere());
    EXPECT_EQ(files.contents(path), theirs());
    EXPECT_THAT(files.names(folder), ElementsAre("Library.tarnwick"));
}

TEST_F(ChangedElsewhereTest, LeavingRightAfterAnEditKeepsBothVersions) {
    LibraryStore& store = openPlain();
    addAccount(store, "Savings");
    files.addFile(path, theirs());
    store.saveNow();
    expectKeptApart(store);
}

TEST_F(ChangedElsewhereTest, ItIsOverWhenTheEarlierBytesComeBack) {
    LibraryStore& store = openAndCollide();
    store.clearError();
    files.addFile(path, encodeLibrary(withAccount("Chequing")));
    store.saveNow();
    expectSaved(store);
    EXPECT_THAT(files.names(folder), ElementsAre("Library.tarnwick"));
}

TEST_F(ChangedElsewhereTest, AWriteThatFailsHalfwayIsNotTakenForAnotherPrograms) {
    LibraryStore& store = openPlain();
    addAccount(store, "Savings");
    files.failAll(Call::setPermissions, EIO);
    store.saveNow();
    ASSERT_EQ(onDisk(), store.library());
    EXPECT_TRUE(store.lastError());
    files.stopFailing();
    store.clearError();
    addAccount(store, "Third");
    store.saveNow();
    expectSaved(store);
}

TEST_F(ChangedElsewhereTest, LeavingAfterEditsThatWereSavedKeepsThisVersionToo) {
    LibraryStore& store = openPlain();
    addAccount(store, "Savings");
    scheduler.advance(1);
    ASSERT_FALSE(store.hasUnsavedChanges());
    // A sync tool brings the older file back.
    files.addFile(path, encodeLibrary(withAccount("Chequing")));
    store.saveNow();
    EXPECT_EQ(store.lastError(), changedText);
    EXPECT_TRUE(store.hasUnsavedChanges());
    EXPECT_EQ(onDisk(), withAccount("Chequing"));
    EXPECT_EQ(files.contents(unsaved), encodeLibrary(ours()));
}

TEST_F(ChangedElsewhereTest, AFileInItsPlaceThatCannotBeReadIsNoticedToo) {
    LibraryStore& store = openAndCollide([this] { files.addFile(path, theirs(), 0000); });
    expectKeptApart(store);
    store.clearError();
    EXPECT_EQ(store.keepThisVersion(), "Library.other-1700000000.tarnwick");
    expectSaved(store);
    EXPECT_EQ(files.contents(other), theirs());
}

TEST_F(ChangedElsewhereTest, AFolderInItsPlaceIsMovedAsideByKeepingThisVersion) {
    LibraryStore& store = openAndCollide([this] {
        files.remove(path);
        files.addFile(std::string(path) + "/inner", "precious");
    });
    EXPECT_TRUE(store.isChangedElsewhere());
    EXPECT_EQ(files.contents(unsaved), encodeLibrary(ours()));
    store.clearError();
    store.keepThisVersion();
    expectSaved(store);
    EXPECT_EQ(files.contents(std::string(other) + "/inner"), "precious");
}

TEST_F(ChangedElsewhereTest, ItIsToldAlsoWhenThisVersionCannotBeKeptBeside) {
    LibraryStore& store = openPlain();
    files.addFile(path, theirs());
    addAccount(store, "Savings");
    // The temporary file is written, the copy beside the data file is not.
    files.failAll(Call::renameWithoutReplacing, EIO);
    files.failAll(Call::rename, EIO);
    scheduler.advance(1);
    EXPECT_TRUE(store.isChangedElsewhere());
    EXPECT_EQ(store.lastError(), changedText +
                                     " This version couldn’t be kept beside it: "
                                     "“Library.unsaved-1700000000.tarnwick” couldn’t be saved: "
                                     "the disk reported an error.");
    files.stopFailing();
    addAccount(store, "Third");
    scheduler.advance(1);
    EXPECT_EQ(files.contents(unsaved), encodeLibrary(store.library()));
}

TEST_F(ChangedElsewhereTest, TheNameOfAVersionBesideThatIsTakenIsNotOverwritten) {
    files.addFile(unsaved, "another program's");
    LibraryStore& store = openAndCollide();
    EXPECT_EQ(files.contents(unsaved), "another program's");
    EXPECT_EQ(files.contents("/home/user/Tarnwick/Library.unsaved-1700000001.tarnwick"),
              encodeLibrary(store.library()));
}

// A file that has gone.

TEST_F(ChangedElsewhereTest, ADeletedFileIsWrittenAgainAndThatIsTold) {
    LibraryStore& store = openPlain();
    int told = 0;
    const Subscription subscription = store.missingFileWritten.observe([&] { ++told; });
    files.remove(path);
    addAccount(store, "Savings");
    scheduler.advance(1);
    expectSaved(store);
    EXPECT_EQ(told, 1);
    addAccount(store, "Third");
    scheduler.advance(1);
    EXPECT_EQ(told, 1);
}

TEST_F(ChangedElsewhereTest, ARenamedFileStaysUnderItsNewName) {
    LibraryStore& store = openPlain();
    files.moveByAnotherProgram(path, "/home/user/Tarnwick/Renamed.tarnwick");
    addAccount(store, "Savings");
    scheduler.advance(1);
    expectSaved(store);
    EXPECT_EQ(files.contents("/home/user/Tarnwick/Renamed.tarnwick"),
              encodeLibrary(withAccount("Chequing")));
}

TEST_F(ChangedElsewhereTest, TheFirstWriteOfANewFileIsNotTakenForOneThatHadGone) {
    LibraryStore& store = open();
    int told = 0;
    const Subscription subscription = store.missingFileWritten.observe([&] { ++told; });
    files.failAll(Call::renameWithoutReplacing, EIO);
    files.failAll(Call::rename, EIO);
    EXPECT_NE(messageOf([&] { store.useNoPassword(); }), "");
    files.stopFailing();
    store.useNoPassword();
    EXPECT_EQ(told, 0);
    expectSaved(store);
}

// Between the last look at the file and its replacement.

/// Lets another program act at the moment of the replacement.
class SwappingFiles final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result exchange(const std::string& one, const std::string& two) override {
        act();
        return FileSystemFilter::exchange(one, two);
    }
    Result renameWithoutReplacing(const std::string& from, const std::string& to) override {
        act();
        return FileSystemFilter::renameWithoutReplacing(from, to);
    }
    std::function<void()> elsewhere;

private:
    void act() {
        if (const auto action = std::exchange(elsewhere, nullptr)) {
            action();
        }
    }
};

/// Another program saves the same file at the same moment, under the same temporary name.
class SavedByTwoAtOnce final : public FileSystemFilter {
public:
    using FileSystemFilter::FileSystemFilter;
    Result sync(int descriptor) override {
        if (const auto action = std::exchange(elsewhere, nullptr)) {
            action();
        }
        return FileSystemFilter::sync(descriptor);
    }
    std::function<void()> elsewhere;
};

TEST_F(ChangedElsewhereTest, TheHalfWrittenFileOfAnotherProgramIsNotPutInPlace) {
    files.addFile(path, encodeLibrary(withAccount("Chequing")));
    choosePlain();
    SavedByTwoAtOnce both(files);
    LibraryStore store(path, {both, scheduler, clock, defaults, passwords, legacyKeys});
    both.elsewhere = [this] {
        files.addFile("/home/user/Tarnwick/.Library.tarnwick.saving", "{\"accounts\":[{\"id");
    };
    addAccount(store, "Savings");
    scheduler.advance(1);
    EXPECT_EQ(onDisk(), ours());
    expectSaved(store);
}

class SwappedAtTheLastMomentTest : public ChangedElsewhereTest {
protected:
    LibraryStoreServices swappingServices() {
        return {swapping, scheduler, clock, defaults, passwords, legacyKeys};
    }
    SwappingFiles swapping{files};
};

TEST_F(SwappedAtTheLastMomentTest, TheOtherVersionIsPutBack) {
    files.addFile(path, encodeLibrary(withAccount("Chequing")));
    choosePlain();
    LibraryStore store(path, swappingServices());
    swapping.elsewhere = [this] { files.addFile(path, theirs()); };
    addAccount(store, "Savings");
    scheduler.advance(1);
    expectKeptApart(store);
}

TEST_F(SwappedAtTheLastMomentTest, AFileThatGoesIsWrittenAgain) {
    files.addFile(path, encodeLibrary(withAccount("Chequing")));
    choosePlain();
    LibraryStore store(path, swappingServices());
    swapping.elsewhere = [this] { files.remove(path); };
    addAccount(store, "Savings");
    scheduler.advance(1);
    expectSaved(store);
}

TEST_F(SwappedAtTheLastMomentTest, ANewFileOfTheSameNameIsNotReplaced) {
    LibraryStore store(path, swappingServices());
    swapping.elsewhere = [this] { files.addFile(path, theirs()); };
    EXPECT_NE(messageOf([&] { store.useNoPassword(); }), "");
    EXPECT_EQ(files.contents(path), theirs());
}

TEST_F(ChangedElsewhereTest, AFileSystemThatCannotExchangeIsWrittenAllTheSame) {
    files.failAll(Call::exchange, EINVAL);
    LibraryStore& store = openPlain();
    addAccount(store, "Savings");
    scheduler.advance(1);
    expectSaved(store);
    EXPECT_THAT(files.names(folder), ElementsAre("Library.tarnwick"));
}

TEST_F(ChangedElsewhereTest, AFileSystemThatCannotExchangeNoticesTheOtherVersionToo) {
    files.failAll(Call::exchange, EINVAL);
    expectKeptApart(openAndCollide());
}

// The decision.

TEST_F(ChangedElsewhereTest, KeepingThisVersionSetsTheOtherAsideAndSaves) {
    LibraryStore& store = openAndCollide();
    store.clearError();
    EXPECT_EQ(store.keepThisVersion(), "Library.other-1700000000.tarnwick");
    expectSaved(store);
    EXPECT_EQ(files.contents(other), theirs());
    EXPECT_THAT(files.names(folder),
                UnorderedElementsAre("Library.tarnwick", "Library.other-1700000000.tarnwick"));
}

TEST_F(ChangedElsewhereTest, ASecondDecisionInTheSameSecondKeepsBothOthers) {
    LibraryStore& store = openAndCollide();
    store.keepThisVersion();
    const std::string third = encodeLibrary(withAccount("Third hand"));
    files.addFile(path, third);
    addAccount(store, "More");
    scheduler.advance(1);
    EXPECT_EQ(store.keepThisVersion(), "Library.other-1700000001.tarnwick");
    EXPECT_EQ(files.contents(other), theirs());
    EXPECT_EQ(files.contents("/home/user/Tarnwick/Library.other-1700000001.tarnwick"), third);
}

TEST_F(ChangedElsewhereTest, KeepingThisVersionWhenTheOtherHasGoneJustSaves) {
    LibraryStore& store = openAndCollide();
    store.clearError();
    files.remove(path);
    EXPECT_EQ(store.keepThisVersion(), std::nullopt);
    expectSaved(store);
}

TEST_F(ChangedElsewhereTest, KeepingThisVersionMovesAnOtherThatCannotBeRead) {
    LibraryStore& store = openAndCollide();
    store.clearError();
    files.addFile(path, theirs(), 0000);
    EXPECT_EQ(store.keepThisVersion(), "Library.other-1700000000.tarnwick");
    expectSaved(store);
    EXPECT_EQ(files.contents(other), theirs());
}

TEST_F(ChangedElsewhereTest, NothingChangesWhenTheOtherCannotBeKept) {
    LibraryStore& store = openAndCollide();
    files.setFreeSpace(10);
    EXPECT_EQ(messageOf([&] { store.keepThisVersion(); }),
              "“Library.other-1700000000.tarnwick” couldn’t be saved: the disk is full");
    files.stopFailing();
    expectKeptApart(store);
}

TEST_F(ChangedElsewhereTest, AThirdVersionThatComesBeforeTheDecisionIsKeptToo) {
    LibraryStore& store = openAndCollide();
    const std::string third = encodeLibrary(withAccount("Third hand"));
    files.addFile(path, third);
    store.keepThisVersion();
    EXPECT_EQ(files.contents(other), third);
    EXPECT_EQ(onDisk(), store.library());
}

TEST_F(ChangedElsewhereTest, OpeningTheOtherVersionIsOneStepThatCanBeUndone) {
    LibraryStore& store = openAndCollide();
    store.clearError();
    store.openOtherVersion();
    EXPECT_EQ(store.library(), withAccount("From elsewhere"));
    EXPECT_FALSE(store.isChangedElsewhere());
    EXPECT_EQ(undo->undoActionName(), "Open the Other Version");
    scheduler.advance(1);
    expectSaved(store);
    // What was given up stays beside the file, since the undo step ends with the program.
    EXPECT_EQ(files.contents(other), encodeLibrary(ours()));
    undo->undo();
    EXPECT_EQ(store.library(), ours());
    scheduler.advance(1);
    expectSaved(store);
}

TEST_F(ChangedElsewhereTest, UndoAfterOpeningTheOtherVersionKeepsACopyOfIt) {
    LibraryStore& store = openAndCollide();
    store.clearError();
    store.openOtherVersion();
    scheduler.advance(1);
    EXPECT_EQ(files.contents(path), theirs());
    clock.advance(10);
    undo->undo();
    scheduler.advance(1);
    expectSaved(store);
    EXPECT_EQ(files.contents("/home/user/Tarnwick/Library.other-1700000010.tarnwick"), theirs());
    addAccount(store, "Third");
    scheduler.advance(1);
    EXPECT_EQ(files.names(folder).size(), 3U);
}

TEST_F(ChangedElsewhereTest, TheOtherVersionThatANewDocumentOpensIsNoNewDocument) {
    LibraryStore& store = open();
    store.replaceLibrary(withAccount("Just begun"), std::nullopt);
    files.addFile(path, theirs());
    EXPECT_NE(messageOf([&] { store.useNoPassword(); }), "");
    store.openOtherVersion();
    EXPECT_FALSE(store.isNewLibrary());
    EXPECT_EQ(store.accessState().kind, Kind::needsPassword);
    store.useNoPassword();
    EXPECT_EQ(onDisk(), withAccount("From elsewhere"));
}

TEST_F(ChangedElsewhereTest, AnOtherVersionThatCannotBeDecodedStaysUntouched) {
    LibraryStore& store = openAndCollide();
    files.addFile(path, "{\"accounts\":[");
    EXPECT_THAT(messageOf([&] { store.openOtherVersion(); }),
                testing::StartsWith("The other version couldn’t be read: "));
    EXPECT_TRUE(store.isChangedElsewhere());
    EXPECT_EQ(store.library(), ours());
    EXPECT_EQ(files.contents(path), "{\"accounts\":[");
}

TEST_F(ChangedElsewhereTest, TellsWhyAnOtherVersionCannotBeDecodedInOneSentence) {
    LibraryStore& store = openAndCollide();
    files.addFile(path, "{\"accounts\":[");
    EXPECT_EQ(messageOf([&] { store.openOtherVersion(); }),
              "The other version couldn’t be read: its contents are damaged.");
    std::string newer = theirs();
    newer.replace(newer.find("\"version\":1"), std::string("\"version\":1").size(),
                  "\"version\":2");
    files.addFile(path, newer);
    EXPECT_EQ(messageOf([&] { store.openOtherVersion(); }),
              "The other version couldn’t be read: "
              "This file was created by a newer version of Oakfen.");
}

TEST_F(ChangedElsewhereTest, AProtectedOtherVersionStaysUntouched) {
    LibraryStore& store = openAndCollide();
    files.addFile(path, "OAKFEN-ENC-3 and more");
    EXPECT_EQ(messageOf([&] { store.openOtherVersion(); }),
              "The other version is protected by a password.");
    EXPECT_TRUE(store.isChangedElsewhere());
    EXPECT_EQ(files.contents(path), "OAKFEN-ENC-3 and more");
}

TEST_F(ChangedElsewhereTest, OpeningAnOtherVersionThatHasGoneKeepsThisOne) {
    LibraryStore& store = openAndCollide();
    store.clearError();
    files.remove(path);
    store.openOtherVersion();
    EXPECT_EQ(store.library(), ours());
    scheduler.advance(1);
    expectSaved(store);
}

TEST_F(ChangedElsewhereTest, LoadingAgainTakesTheOtherVersionForKnown) {
    LibraryStore& store = openAndCollide();
    store.retryLoading();
    EXPECT_FALSE(store.isChangedElsewhere());
    EXPECT_EQ(store.library(), withAccount("From elsewhere"));
    addAccount(store, "Savings");
    scheduler.advance(1);
    expectSaved(store);
}

TEST_F(ChangedElsewhereTest, StartingOverSetsTheOtherVersionAside) {
    LibraryStore& store = openAndCollide();
    store.startOver();
    EXPECT_FALSE(store.isChangedElsewhere());
    EXPECT_EQ(files.contents(pathAside), theirs());
    EXPECT_EQ(files.contents(unsaved), encodeLibrary(ours()));
}

// The next start.

TEST_F(ChangedElsewhereTest, TheNextStartTellsOnceOfAVersionThatWasKeptBeside) {
    openAndCollide();
    close();
    LibraryStore& next = open();
    EXPECT_EQ(next.library(), withAccount("From elsewhere"));
    EXPECT_THAT(next.takeVersionsBeside(), ElementsAre("Library.other-1700000000.tarnwick"));
    EXPECT_EQ(files.contents(other), encodeLibrary(ours()));
    EXPECT_THAT(next.takeVersionsBeside(), IsEmpty());
    close();
    EXPECT_THAT(open().takeVersionsBeside(), IsEmpty());
}

TEST_F(ChangedElsewhereTest, TheVersionThatThisProgramKeepsBesideIsNotTold) {
    LibraryStore& store = openAndCollide();
    EXPECT_THAT(store.takeVersionsBeside(), IsEmpty());
    EXPECT_TRUE(files.contents(unsaved).has_value());
}

TEST_F(ChangedElsewhereTest, OtherFilesBesideAreLeftAlone) {
    files.addFile("/home/user/Tarnwick/Other.unsaved-1.tarnwick", "theirs");
    files.addFile("/home/user/Tarnwick/Library.unsaved-1.txt", "theirs");
    EXPECT_THAT(openPlain().takeVersionsBeside(), IsEmpty());
    EXPECT_THAT(open(std::nullopt).takeVersionsBeside(), IsEmpty());
}

} // namespace
} // namespace oakfen

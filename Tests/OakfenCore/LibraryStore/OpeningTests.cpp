#include <cerrno>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OakfenCore/LibraryStore/Opening.h"
#include "OakfenCore/Support/Text/Text.h"
#include "Tests/OakfenCore/LibraryStore/StoreFixture.h"

namespace oakfen {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

class OpeningTest : public StoreTest {
protected:
    static auto tellsOfDamage() {
        return AllOf(StartsWith("Couldn’t open your data file: "),
                     EndsWith(". The damaged file was set aside next to the original."));
    }
};

TEST_F(OpeningTest, BeginsANewDocumentWithoutAFile) {
    const LibraryStore& store = open();
    EXPECT_EQ(store.accessState(), AccessState{.kind = Kind::needsPassword});
    EXPECT_TRUE(store.isNewLibrary());
    EXPECT_EQ(store.library(), Library{.currencyCode = defaultCurrencyCode()});
    EXPECT_FALSE(store.lastError().has_value());
    EXPECT_FALSE(store.usesPassword());
    EXPECT_TRUE(files.names("/home/user").empty());
}

TEST_F(OpeningTest, BeginsANewDocumentInMemoryWithoutAPath) {
    const LibraryStore& store = open(std::nullopt);
    EXPECT_EQ(store.accessState().kind, Kind::needsPassword);
    EXPECT_TRUE(store.isNewLibrary());
    EXPECT_FALSE(store.filePath().has_value());
}

TEST_F(OpeningTest, TakesALinkThatLeadsNowhereForNoFile) {
    files.addLink(path, "/home/user/elsewhere.tarnwick");
    LibraryStore& store = open();
    EXPECT_TRUE(store.isNewLibrary());
    store.useNoPassword();
    EXPECT_TRUE(files.isLink(path));
    EXPECT_TRUE(files.contents("/home/user/elsewhere.tarnwick").has_value());
}

TEST_F(OpeningTest, OpensAPlainFileThatWasChosenToBePlain) {
    const LibraryStore& store = openPlain(withAccount("Chequing"));
    EXPECT_EQ(store.accessState(), AccessState{.kind = Kind::open});
    EXPECT_FALSE(store.isNewLibrary());
    EXPECT_EQ(store.library(), withAccount("Chequing"));
    EXPECT_FALSE(store.lastError().has_value());
    EXPECT_EQ(writeCount(), 0);
}

TEST_F(OpeningTest, AsksForAChoiceOnAPlainFileWithoutOneAndSavesNothingUntilThen) {
    files.addFile(path, encodeLibrary(withAccount("Chequing")));
    LibraryStore& store = open();
    EXPECT_EQ(store.accessState().kind, Kind::needsPassword);
    EXPECT_FALSE(store.isNewLibrary());
    EXPECT_EQ(store.library(), withAccount("Chequing"));
    addAccount(store, "Savings");
    scheduler.advance(1);
    store.saveNow();
    EXPECT_EQ(onDisk(), withAccount("Chequing"));
    store.useNoPassword();
    EXPECT_EQ(onDisk(), store.library());
}

TEST_F(OpeningTest, BuildsTheIndexFromTheDocumentAtThisMoment) {
    const LibraryStore& store = openPlain(withAccount("Chequing"));
    EXPECT_EQ(store.index().library(), store.library());
    EXPECT_EQ(store.index().now(), clock.now());
}

TEST_F(OpeningTest, LeavesAFileAloneThatCannotBeRead) {
    files.addFile(path, "whatever", 0000);
    const LibraryStore& store = open();
    EXPECT_EQ(store.accessState(),
              (AccessState{.kind = Kind::legacyUnavailable,
                           .reason = "Your data file couldn’t be read: “Library.tarnwick” couldn’t "
                                     "be opened: you don’t have permission"}));
    EXPECT_FALSE(store.isNewLibrary());
    EXPECT_FALSE(store.lastError().has_value());
    EXPECT_EQ(store.library(), Library{.currencyCode = defaultCurrencyCode()});
    EXPECT_EQ(files.contents(path), "whatever");
}

TEST_F(OpeningTest, LeavesAFolderAloneThatStandsInPlaceOfTheFile) {
    files.addFolder(path);
    EXPECT_EQ(open().accessState().kind, Kind::legacyUnavailable);
    EXPECT_THAT(files.names(folder), ElementsAre("Library.tarnwick"));
}

TEST_F(OpeningTest, DoesNotTakeAFileForMissingOfWhichNothingCanBeTold) {
    files.addFile(path, encodeLibrary(withAccount("Chequing")));
    files.failAll(Call::information, EIO);
    EXPECT_EQ(open().accessState().kind, Kind::legacyUnavailable);
}

TEST_F(OpeningTest, SetsADamagedFileAsideAndBeginsANewDocument) {
    files.addFile(path, "{\"accounts\":[");
    const LibraryStore& store = open();
    EXPECT_EQ(store.accessState().kind, Kind::needsPassword);
    EXPECT_TRUE(store.isNewLibrary());
    EXPECT_EQ(store.library(), Library{.currencyCode = defaultCurrencyCode()});
    ASSERT_TRUE(store.lastError().has_value());
    EXPECT_EQ(*store.lastError(), "Couldn’t open your data file: its contents are damaged. "
                                  "The damaged file was set aside next to the original.");
    EXPECT_EQ(store.lastErrorDetails().keptName, "Library.damaged-1700000000.tarnwick");
    EXPECT_THAT(store.lastErrorDetails().place, StartsWith("accounts"));
    EXPECT_THAT(store.lastErrorDetails().place, EndsWith(": the text ends too early (byte 13)"));
    EXPECT_EQ(files.contents(pathAside), "{\"accounts\":[");
    EXPECT_FALSE(files.contents(path).has_value());
}

TEST_F(OpeningTest, ForgetsTheDetailsOfAnErrorWithIt) {
    files.addFile(path, "{\"accounts\":[");
    LibraryStore& store = open();
    store.clearError();
    EXPECT_EQ(store.lastErrorDetails(), ErrorDetails{});
}

TEST_F(OpeningTest, NamesNoFileThatCouldNotBeSetAside) {
    files.addFile(path, "{\"accounts\":[");
    files.failAll(Call::renameWithoutReplacing, EIO);
    EXPECT_FALSE(open().lastErrorDetails().keptName);
}

TEST_F(OpeningTest, TakesAnEmptyFileForADamagedOne) {
    files.addFile(path, "");
    const LibraryStore& store = open();
    EXPECT_TRUE(store.isNewLibrary());
    ASSERT_TRUE(store.lastError().has_value());
    EXPECT_THAT(*store.lastError(), tellsOfDamage());
    EXPECT_EQ(files.contents(pathAside), "");
}

TEST_F(OpeningTest, SetsAFileOfANewerVersionAsideAndSaysSo) {
    std::string json = encodeLibrary(withAccount("Chequing"));
    const std::size_t place = json.find("\"version\":1");
    ASSERT_NE(place, std::string::npos);
    json.replace(place, std::string("\"version\":1").size(), "\"version\":2");
    files.addFile(path, json);
    const LibraryStore& store = open();
    EXPECT_THAT(*store.lastError(),
                testing::HasSubstr("This file was created by a newer version of Oakfen."));
    EXPECT_EQ(files.contents(pathAside), json);
}

TEST_F(OpeningTest, LocksAFileWithAPasswordWithoutTouchingIt) {
    const std::string container = "OAKFEN-ENC-3 and nothing that makes sense";
    files.addFile(path, container);
    LibraryStore& store = open();
    EXPECT_EQ(store.accessState(), AccessState{.kind = Kind::locked});
    EXPECT_FALSE(store.isNewLibrary());
    EXPECT_FALSE(store.lastError().has_value());
    addAccount(store, "Savings");
    store.useNoPassword();
    store.saveNow();
    scheduler.advance(1);
    EXPECT_EQ(files.contents(path), container);
    EXPECT_FALSE(store.hasUnsavedChanges());
}

TEST_F(OpeningTest, EditsInMemoryWhatStandsInForALockedDocument) {
    files.addFile(path, "OAKFEN-ENC-3");
    LibraryStore& store = open();
    addAccount(store, "Savings");
    EXPECT_EQ(store.accessState().kind, Kind::locked);
    ASSERT_EQ(accountCount(store), 1U);
    EXPECT_EQ(store.index().library(), store.library());
    undo->undo();
    EXPECT_EQ(store.library(), Library{.currencyCode = defaultCurrencyCode()});
}

TEST_F(OpeningTest, LocksAFileWithAPasswordEvenWhereAPlainOneWasChosen) {
    choosePlain();
    files.addFile(path, "OAKFEN-ENC-3");
    LibraryStore& store = open();
    addAccount(store, "Savings");
    scheduler.advance(1);
    EXPECT_EQ(files.contents(path), "OAKFEN-ENC-3");
}

TEST_F(OpeningTest, CannotOpenAFileOfAnEarlierVersionWithoutItsKey) {
    for (const std::string magic : {"TARNWICKENC1", "TARNWICKENC2"}) {
        files.addFile(path, magic + " and more");
        const LibraryStore& store = open();
        EXPECT_EQ(store.accessState(),
                  (AccessState{.kind = Kind::legacyUnavailable,
                               .reason = "The Keychain key that earlier versions used for this "
                                         "file is missing."}));
        EXPECT_FALSE(store.isNewLibrary());
        EXPECT_EQ(files.contents(path), magic + " and more");
    }
}

TEST_F(OpeningTest, KnowsWhetherAPasswordIsSaved) {
    EXPECT_FALSE(open().isPasswordSaved());
    passwords.save("secret");
    EXPECT_TRUE(open().isPasswordSaved());
    passwords.failWith("Locked.");
    EXPECT_FALSE(open().isPasswordSaved());
}

TEST_F(OpeningTest, NeverThrowsAndLosesNothingWhicheverCallFails) {
    for (const bool damaged : {false, true}) {
        const std::string bytes = damaged ? "damaged" : encodeLibrary(withAccount("Chequing"));
        for (int number = 1;; ++number) {
            files.remove(pathAside);
            files.addFile(path, bytes);
            files.failCall(number, EIO, InMemoryFileSystem::Repeat::fromThenOn);
            (void)open();
            const auto there = files.contents(path);
            EXPECT_EQ(there ? there : files.contents(pathAside), bytes);
            if (!files.hasFailed()) {
                break;
            }
        }
        files.stopFailing();
    }
}

TEST_F(OpeningTest, LeavesADamagedFileInPlaceWhenTheNameForItIsTaken) {
    files.addFile(path, "damaged");
    files.addFile(pathAside, "damaged before");
    const LibraryStore& store = open();
    EXPECT_EQ(store.accessState().kind, Kind::needsPassword);
    EXPECT_TRUE(store.lastError().has_value());
    EXPECT_EQ(files.contents(path), "damaged");
    EXPECT_EQ(files.contents(pathAside), "damaged before");
}

TEST_F(OpeningTest, SetsADamagedFileThatStayedAsideBeforeTheFirstSave) {
    files.addFile(path, "damaged");
    files.addFile(pathAside, "damaged before");
    LibraryStore& store = open();
    clock.advance(5);
    store.useNoPassword();
    EXPECT_EQ(files.contents("/home/user/Tarnwick/Library.damaged-1700000005.tarnwick"), "damaged");
    EXPECT_EQ(files.contents(pathAside), "damaged before");
    EXPECT_EQ(onDisk(), store.library());

    addAccount(store, "Savings");
    store.saveNow();
    EXPECT_EQ(onDisk(), store.library());
    EXPECT_EQ(files.names(folder).size(), 3U);
}

TEST_F(OpeningTest, NeverOverwritesADamagedFileThatCannotBeMoved) {
    files.addFile(path, "damaged");
    files.failAll(Call::renameWithoutReplacing, EPERM);
    LibraryStore& store = open();
    EXPECT_THROW(store.useNoPassword(), FileError);
    EXPECT_EQ(store.accessState().kind, Kind::needsPassword);
    EXPECT_EQ(files.contents(path), "damaged");
    EXPECT_THROW(store.useNoPassword(), FileError);
    EXPECT_EQ(files.contents(path), "damaged");
    files.stopFailing();
    store.useNoPassword();
    EXPECT_EQ(files.contents(pathAside), "damaged");
}

TEST_F(OpeningTest, WritesWhereADamagedFileThatStayedHasGoneMeanwhile) {
    files.addFile(path, "damaged");
    files.failAll(Call::renameWithoutReplacing, EPERM);
    LibraryStore& store = open();
    files.stopFailing();
    files.remove(path);
    store.useNoPassword();
    EXPECT_EQ(onDisk(), store.library());
}

TEST(PathBeside, KeepsTheExtensionAtTheEnd) {
    const Date now = Date::since1970(1'700'000'000.9);
    EXPECT_EQ(pathBeside("/a.b/Library.tarnwick", "damaged", now),
              "/a.b/Library.damaged-1700000000.tarnwick");
    EXPECT_EQ(pathBeside("/a.b/Library", "damaged", now),
              "/a.b/Library.damaged-1700000000.tarnwick");
    EXPECT_EQ(pathBeside("/a/my.money.json", "damaged", now),
              "/a/my.money.damaged-1700000000.tarnwick");
    EXPECT_EQ(pathBeside("/a/.hidden", "damaged", now), "/a/.hidden.damaged-1700000000.tarnwick");
    EXPECT_EQ(pathBeside("Library.tarnwick", "damaged", now),
              "Library.damaged-1700000000.tarnwick");
}

TEST(PathBeside, CutsALongNameWhereACharacterEnds) {
    std::string name;
    for (int count = 0; count < 80; ++count) {
        name += "é€";
    }
    const std::string path = pathBeside("/a/" + name + ".tarnwick", "unsaved", Date::since1970(1));
    const std::string cut = path.substr(3);
    EXPECT_LE(cut.size(), 255U);
    EXPECT_GT(cut.size(), 250U);
    EXPECT_TRUE(isValidUTF8(cut));
    EXPECT_TRUE(cut.ends_with(".unsaved-1.tarnwick"));
}

} // namespace
} // namespace oakfen

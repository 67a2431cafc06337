#include <gtest/gtest.h>

#include "OakfenCore/LibraryStore/ContainerFormat.h"
#include "OakfenCore/LibraryStore/DataFileChoice.h"
#include "OakfenCore/LibraryStore/LibraryStore.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Testing/InMemoryFileSystem.h"

namespace oakfen {
namespace {

class DataFileChoiceTest : public testing::Test {
protected:
    DataFileChoiceTest() { files.addFolder("/home/user"); }

    [[nodiscard]] DataFileChoice choose(const std::optional<std::string>& argument) {
        return dataFileChoice(files, argument, "/home/user");
    }

    InMemoryFileSystem files;
};

TEST_F(DataFileChoiceTest, IsTheUsualFileWithoutAnArgument) {
    EXPECT_EQ(choose(std::nullopt),
              (DataFileChoice{LibraryStore::defaultFilePath(), "dataFileUnencrypted"}));
}

TEST_F(DataFileChoiceTest, EndsInTheNameOfTheEarlierProduct) {
    EXPECT_TRUE(LibraryStore::defaultFilePath().ends_with("/Tarnwick/Library.tarnwick"));
}

TEST_F(DataFileChoiceTest, HasAKeyOfItsOwnForAnotherFile) {
    EXPECT_EQ(choose("/media/stick/money.tarnwick"),
              (DataFileChoice{"/media/stick/money.tarnwick",
                              "dataFileUnencrypted:/media/stick/money.tarnwick"}));
}

TEST_F(DataFileChoiceTest, StartsARelativePathAtTheWorkingFolder) {
    EXPECT_EQ(choose("../money.tarnwick").path, "/home/money.tarnwick");
}

TEST_F(DataFileChoiceTest, IsTheSameForEveryWayToOneFile) {
    files.addFile("/home/user/real/money.tarnwick", "");
    files.addLink("/home/user/link", "real/money.tarnwick");
    files.addLink("/home/user/vault", "/home/user/real");
    const DataFileChoice direct = choose("real/money.tarnwick");
    EXPECT_EQ(choose("link"), direct);
    EXPECT_EQ(choose("/home/user/vault/./money.tarnwick"), direct);
}

TEST_F(DataFileChoiceTest, HasTheUsualKeyForTheUsualFileByAnotherWay) {
    const std::string usual = LibraryStore::defaultFilePath();
    files.addFile(usual, "");
    files.addLink("/home/user/link", usual);
    EXPECT_EQ(choose("link"), (DataFileChoice{usual, "dataFileUnencrypted"}));
}

TEST_F(DataFileChoiceTest, KeepsAPathWhoseLinksGoRoundInACircle) {
    files.addLink("/home/user/a", "b");
    files.addLink("/home/user/b", "a");
    EXPECT_EQ(choose("a").path, "/home/user/a");
}

TEST(ContainerFormat, IsToldByTheFirstBytes) {
    EXPECT_EQ(containerFormat("OAKFEN-ENC-3"), ContainerFormat::password);
    EXPECT_EQ(containerFormat("TARNWICKENC1..."), ContainerFormat::legacyV1);
    EXPECT_EQ(containerFormat("TARNWICKENC2..."), ContainerFormat::legacyV2);
    EXPECT_EQ(containerFormat("{\"accounts\":[]}"), ContainerFormat::plaintext);
    EXPECT_EQ(containerFormat("OAKFEN-ENC-"), ContainerFormat::plaintext);
    EXPECT_EQ(containerFormat(" OAKFEN-ENC-3"), ContainerFormat::plaintext);
    EXPECT_EQ(containerFormat(""), ContainerFormat::plaintext);
}

TEST(IsDataFile, TakesWhatIsNamedLikeOneWhateverItHolds) {
    InMemoryFileSystem files;
    files.addFile("/a.tarnwick", "damaged");
    EXPECT_TRUE(isDataFile(files, "/a.tarnwick"));
    EXPECT_TRUE(isDataFile(files, "/not-there-yet.tarnwick"));
}

TEST(IsDataFile, TakesWhatBeginsLikeADocumentOrAContainer) {
    InMemoryFileSystem files;
    const std::string document = encodeLibrary(Library{.currencyCode = "CAD"});
    const std::string beginnings[] = {
        document,         document.substr(0, 20), " \n{ \"transactions\" : [",
        "{\"version\":",  "OAKFEN-ENC-3...",      "TARNWICKENC1...",
        "TARNWICKENC2..."};
    for (const std::string& bytes : beginnings) {
        files.addFile("/money.json", bytes);
        EXPECT_TRUE(isDataFile(files, "/money.json")) << bytes;
    }
}

TEST(IsDataFile, LeavesEverythingElseAlone) {
    InMemoryFileSystem files;
    const std::string contents[] = {"",
                                    "Date,Payee,Amount\n",
                                    "{\"name\":\"package\"}",
                                    "{\"accounts\"",
                                    "{\"accounts\":{\"owner\":1}}",
                                    "{\"accounts\": [{\"owner\": \"Bob\"}], \"foo\": 1}",
                                    "{\"transactions\":[1,2]}",
                                    "[{\"accounts\":[]}]",
                                    "{}",
                                    "{",
                                    "accounts:",
                                    std::string(10, '\0')};
    for (const std::string& bytes : contents) {
        files.addFile("/notes.json", bytes);
        EXPECT_FALSE(isDataFile(files, "/notes.json")) << bytes;
    }
    files.addFolder("/folder");
    EXPECT_THROW((void)isDataFile(files, "/folder"), FileError);
    EXPECT_THROW((void)isDataFile(files, "/missing.json"), FileError);
}

} // namespace
} // namespace oakfen

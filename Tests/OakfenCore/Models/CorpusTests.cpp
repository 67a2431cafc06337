// Texts of documents, each with one defect or oddity that names its file. In corpus/fails a message
// stands beside the defects of the document itself; those of the grammar have none, since only the
// place is promised. In corpus/loads stands, where it differs from plain.json, what the text comes
// to when it is saved again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "OakfenCore/Models/LibraryCoding.h"
#include "Tests/Support/Table.h"

namespace oakfen {
namespace {

using ::testing::AnyOf;
using ::testing::ContainsRegex;
using testing::contentsOf;
using ::testing::Not;
using Path = std::filesystem::path;

const Path corpus = OAKFEN_TEST_DIRECTORY "/corpus";

void forEachText(const std::string& folder, const std::function<void(const Path&)>& check) {
    std::vector<Path> paths;
    for (const auto& file : std::filesystem::directory_iterator(corpus / folder)) {
        if (file.path().extension() == ".json") {
            paths.push_back(file.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    EXPECT_GT(paths.size(), 40U);
    for (const Path& path : paths) {
        SCOPED_TRACE(folder + "/" + path.filename().string());
        check(path);
    }
}

/// What the error says; nothing when the text loads.
std::string errorFor(const std::string& text) {
    try {
        (void)decodeLibrary(text);
        return "";
    } catch (const LibraryDecodingError& error) {
        return error.place().empty() ? error.localizedDescription() : error.place();
    }
}

std::string repeated(std::string_view piece, std::size_t count) {
    std::string text;
    for (; count > 0; --count) {
        text += piece;
    }
    return text;
}

constexpr std::size_t manyLevels = 100'000;

std::string withGoals(const std::string& goals) {
    return R"({"accounts":[],"budget":[],"categories":[],"currencyCode":"CAD","goals":)" + goals +
           R"(,"investmentTransactions":[],"scheduled":[],"securities":[],"transactions":[],)" +
           R"("version":1})";
}

TEST(Corpus, EachDefectIsRefusedWithItsPlace) {
    forEachText("fails", [](const Path& path) {
        const std::string error = errorFor(contentsOf(path));
        const Path message = Path(path).replace_extension(".message");
        if (std::filesystem::exists(message)) {
            EXPECT_EQ(error, contentsOf(message));
        } else {
            EXPECT_THAT(error, AnyOf(ContainsRegex("byte [0-9]+"), ContainsRegex("^[a-zA-Z.]+: ")));
        }
    });
}

TEST(Corpus, EachOddityLoadsAndIsSavedInOneForm) {
    forEachText("loads", [](const Path& path) {
        const std::string text = contentsOf(path);
        ASSERT_EQ(errorFor(text), "");
        const Path canonical = Path(path).replace_extension(".canonical");
        const bool hasOwnForm = std::filesystem::exists(canonical);
        EXPECT_EQ(encodeLibrary(decodeLibrary(text)),
                  contentsOf(hasOwnForm ? canonical : corpus / "loads/plain.json"));
    });
}

TEST(Corpus, NoBeginningOfATextLoads) {
    const std::string whole = contentsOf(corpus / "loads/every-field.json");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        ASSERT_THAT(errorFor(whole.substr(0, length)), Not("")) << length;
    }
}

TEST(Corpus, EveryOtherByteInATextIsReadOrRefused) {
    const std::string whole = contentsOf(corpus / "loads/every-field.json");
    for (std::size_t position = 0; position < whole.size(); ++position) {
        for (const char byte : {'"', '\\', '0', '}', '\0', '\xFF'}) {
            std::string damaged = whole;
            damaged[position] = byte;
            if (errorFor(damaged).empty()) {
                const Library library = decodeLibrary(damaged);
                ASSERT_EQ(decodeLibrary(encodeLibrary(library)), library) << position;
            }
        }
    }
}

TEST(Corpus, AnUnknownValueMayHaveAHundredThousandLevels) {
    const std::string plain = withGoals("[]");
    for (const auto& [opening, closing] : {std::pair("[", "]"), std::pair("{\"a\":", "}")}) {
        std::string deep = repeated(opening, manyLevels) + "1" + repeated(closing, manyLevels);
        const std::string text = "{\"aside\":" + deep + "," + plain.substr(1);
        EXPECT_EQ(decodeLibrary(text), decodeLibrary(plain));
    }
}

TEST(Corpus, AHundredThousandLevelsInPlaceOfARecordAreRefused) {
    EXPECT_EQ(
        errorFor(withGoals(repeated("[", manyLevels + 1) + "1" + repeated("]", manyLevels + 1))),
        "goals[0]: not an object");
    EXPECT_THAT(errorFor(withGoals("[" + repeated("{\"a\":", manyLevels) + "1" +
                                   repeated("}", manyLevels) + "]")),
                ContainsRegex("^goals\\[0\\]: the key “.*” is missing$"));
}

TEST(Corpus, AHundredThousandLevelsWithoutAnEndAreRefused) {
    for (const std::string_view opening : {"[", "{\"a\":", "{\"a\":[", "["}) {
        EXPECT_THAT(errorFor(repeated(opening, manyLevels)), Not("")) << opening;
        EXPECT_THAT(errorFor("{\"aside\":" + repeated(opening, manyLevels)), Not("")) << opening;
    }
}

} // namespace
} // namespace oakfen

#include "OakfenCore/Importers/CategoryChooser.h"

#include "Tests/OakfenCore/Importers/StatementFixtures.h"

namespace oakfen {
namespace {

using testing::day;
using testing::importedLine;
using testing::toronto;

ImportedTransaction named(std::string category) {
    ImportedTransaction item = importedLine(day(2024, 3, 1), "Shop", "-4.50");
    item.categoryName = std::move(category);
    return item;
}

TEST(CategoryChooser, TellsANameThatNoCategoryHas) {
    Library library{.currencyCode = "CAD"};
    library.categories.push_back({.id = UUID::random(), .name = "Food"});
    const LibraryIndex index(library, day(2024, 6, 1), toronto());
    CategoryChooser chooser(index);
    EXPECT_TRUE(chooser.namesUnknownCategory(named("Medical")));
    EXPECT_FALSE(chooser.namesUnknownCategory(named("food")));
    EXPECT_FALSE(chooser.namesUnknownCategory(named("")));
    EXPECT_FALSE(chooser.namesUnknownCategory(importedLine(day(2024, 3, 1), "Shop", "-4.50")));
}

} // namespace
} // namespace oakfen

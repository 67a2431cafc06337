#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// Replaces the category with that id in place, else appends it.
void upsert(Library& library, Category category);

/// Removes the category; its subcategories move up a level and what was filed under it is
/// uncategorised.
void deleteCategory(Library& library, const UUID& id);

/// Finds a category by a path that somebody typed ("Food: Groceries"), without regard to case: the
/// last name decides, and the one before it chooses among several. Null when nothing has that name.
[[nodiscard]] const Category* categoryNamed(const Library& library, std::string_view path);

/// The most names that a path may have for `categoryFor` to make its category.
inline constexpr std::size_t mostCategoryLevels = 2;

/// The names in a path that somebody typed, from the top of the tree down; no empty ones.
[[nodiscard]] std::vector<std::string> namesOfPath(std::string_view path);

/// Whether the category has a parent of that name, without regard to case.
[[nodiscard]] bool hasParentNamed(const Library& library, const Category& category,
                                  std::string_view name);

/// The top-level category of that name, of the kind if there is one; null when there is none.
[[nodiscard]] const Category* topLevelCategoryNamed(const Library& library, std::string_view name,
                                                    CategoryKind kind);

/// The category of that path, which has one or two names: a name alone is looked up as
/// `categoryNamed` does; beneath a parent, only there. What is missing is made, the parent too; a
/// new category is of the kind, or of its parent's. No id for a path that is empty or too long.
[[nodiscard]] std::optional<UUID> categoryFor(Library& library, std::string_view path,
                                              CategoryKind kind);

} // namespace oakfen

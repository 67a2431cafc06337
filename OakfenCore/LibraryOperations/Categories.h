#pragma once

#include <string_view>

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

} // namespace oakfen

#pragma once

#include <string>
#include <vector>

#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// The category tree that a new document starts with; new ids at each call.
[[nodiscard]] std::vector<Category> makeDefaultCategories();

/// A new document: the default categories and nothing else.
[[nodiscard]] Library emptyLibrary(std::string currencyCode);

} // namespace oakfen

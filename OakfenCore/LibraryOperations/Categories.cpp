#include "OakfenCore/LibraryOperations/Categories.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "OakfenCore/LibraryOperations/ReplaceOrAppend.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// The names in a typed path, without the blanks around them.
std::vector<std::string_view> namesInPath(std::string_view path) {
    std::vector<std::string_view> names = split(path, ':');
    std::erase_if(names, [](std::string_view name) { return name.empty(); });
    std::ranges::transform(names, names.begin(), trimmingWhitespaces);
    return names;
}

} // namespace

bool hasParentNamed(const Library& library, const Category& category, std::string_view name) {
    if (!category.parentID) {
        return false;
    }
    const Category* const parent = library.categories.first(
        [&](const Category& candidate) { return candidate.id == *category.parentID; });
    return parent != nullptr && equalsCaseInsensitively(parent->name, name);
}

void upsert(Library& library, Category category) {
    replaceOrAppend(library.categories, std::move(category));
}

void deleteCategory(Library& library, const UUID& id) {
    const Category* const category =
        library.categories.first([&](const Category& candidate) { return candidate.id == id; });
    if (category == nullptr) {
        return;
    }
    const std::optional<UUID> parentID = category->parentID;
    library.categories.eraseIf([&](const Category& candidate) { return candidate.id == id; });
    library.categories.editWhere(
        [&](const Category& candidate) { return candidate.parentID == id; },
        [&](Category& child) { child.parentID = parentID; });

    const auto isFiledHere = [&](const auto& record) { return record.categoryID == id; };
    const auto unfile = [](auto& record) { record.categoryID.reset(); };
    library.transactions.editWhere(
        [&](const Transaction& transaction) {
            return isFiledHere(transaction) || std::ranges::any_of(transaction.splits, isFiledHere);
        },
        [&](Transaction& transaction) {
            if (isFiledHere(transaction)) {
                unfile(transaction);
            }
            for (Split& line : transaction.splits) {
                if (isFiledHere(line)) {
                    unfile(line);
                }
            }
        });
    library.scheduled.editWhere(isFiledHere, unfile);
    library.budget.erase(id);
}

const Category* categoryNamed(const Library& library, std::string_view path) {
    const std::vector<std::string_view> names = namesInPath(path);
    if (names.empty() || names.back().empty()) {
        return nullptr;
    }
    const Category* firstCandidate = nullptr;
    for (const Category& category : library.categories) {
        if (!equalsCaseInsensitively(category.name, names.back())) {
            continue;
        }
        if (names.size() == 1 || hasParentNamed(library, category, names[names.size() - 2])) {
            return &category;
        }
        if (firstCandidate == nullptr) {
            firstCandidate = &category;
        }
    }
    return firstCandidate;
}

std::vector<std::string> namesOfPath(std::string_view path) {
    std::vector<std::string> names;
    for (const std::string_view name : namesInPath(path)) {
        if (!name.empty()) {
            names.emplace_back(name);
        }
    }
    return names;
}

const Category* topLevelCategoryNamed(const Library& library, std::string_view name,
                                      CategoryKind kind) {
    const Category* found = nullptr;
    for (const Category& category : library.categories) {
        if (category.parentID || !equalsCaseInsensitively(category.name, name)) {
            continue;
        }
        if (category.kind == kind) {
            return &category;
        }
        if (found == nullptr) {
            found = &category;
        }
    }
    return found;
}

namespace {

Category addCategory(Library& library, const std::string& name, CategoryKind kind,
                     const std::optional<UUID>& parentID) {
    Category category{.id = UUID::random(), .name = name, .kind = kind, .parentID = parentID};
    library.categories.push_back(category);
    return category;
}

} // namespace

std::optional<UUID> categoryFor(Library& library, std::string_view path, CategoryKind kind) {
    const std::vector<std::string> names = namesOfPath(path);
    if (names.empty() || names.size() > mostCategoryLevels) {
        return std::nullopt;
    }
    const std::string& name = names.back();
    const Category* known = categoryNamed(library, joined(names, ": "));
    if (names.size() == 1) {
        return known != nullptr ? known->id : addCategory(library, name, kind, {}).id;
    }
    if (known != nullptr && hasParentNamed(library, *known, names.front())) {
        return known->id;
    }
    const Category* above = topLevelCategoryNamed(library, names.front(), kind);
    // A copy, since adding the child may move the records.
    const Category parent =
        above != nullptr ? *above : addCategory(library, names.front(), kind, {});
    return addCategory(library, name, parent.kind, parent.id).id;
}

} // namespace oakfen

#include "OakfenCore/LibraryIndex/CategoryTree.h"

#include <iterator>
#include <utility>

#include "OakfenCore/LibraryIndex/Sorting.h"

namespace oakfen {

namespace {

using Categories = std::vector<const Category*>;

Categories sortedByName(Categories categories) {
    sortRecordsForPeople(categories, &Category::name);
    return categories;
}

} // namespace

CategoryTree::CategoryTree(const SharedArray<Category>& categories)
    : categories_(categories), byID_(categories) {
    paths_.reserve(byID_.records().size());
    for (const Category* category : byID_.records()) {
        paths_.push_back(makePath(*category));
    }
}

std::string CategoryTree::makePath(const Category& category) const {
    std::string path = category.name;
    const Category* current = &category;
    for (int step = 0; step < maximumSteps && current->parentID; ++step) {
        current = find(*current->parentID);
        if (!current) {
            break;
        }
        path.insert(0, current->name + ": ");
    }
    return path;
}

const std::string* CategoryTree::path(const UUID& id) const {
    const auto position = byID_.position(id);
    return position ? &paths_[*position] : nullptr;
}

const std::vector<const Category*>& CategoryTree::sortedByPath() const {
    std::call_once(sortedOnce_, [this] {
        for (const Category& category : categories_) {
            sortedByPath_.push_back(&category);
        }
        sortRecordsForPeople(sortedByPath_,
                             [this](const Category* category) { return *path(category->id); });
    });
    return sortedByPath_;
}

std::vector<const Category*> CategoryTree::sorted(CategoryKind kind) const {
    std::vector<const Category*> result;
    std::copy_if(sortedByPath().begin(), sortedByPath().end(), std::back_inserter(result),
                 [kind](const Category* category) { return category->kind == kind; });
    return result;
}

std::vector<const Category*> CategoryTree::children(const UUID& id) const {
    std::call_once(groupedOnce_, [this] {
        for (const Category& category : categories_) {
            if (category.parentID) {
                children_[*category.parentID].push_back(&category);
            }
        }
    });
    const auto found = children_.find(id);
    return found == children_.end() ? Categories() : sortedByName(found->second);
}

std::vector<const Category*> CategoryTree::topLevel(CategoryKind kind) const {
    Categories result;
    for (const Category& category : categories_) {
        if (category.kind == kind && !category.parentID) {
            result.push_back(&category);
        }
    }
    return sortedByName(std::move(result));
}

UUID CategoryTree::topLevelID(const UUID& id) const {
    UUID current = id;
    for (int step = 0; step < maximumSteps; ++step) {
        const Category* category = find(current);
        if (!category || !category->parentID) {
            break;
        }
        current = *category->parentID;
    }
    return current;
}

} // namespace oakfen

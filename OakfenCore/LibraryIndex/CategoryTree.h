#pragma once

#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "OakfenCore/LibraryIndex/PositionTable.h"
#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// The flat list of categories read as a tree. A loaded document may hold parents that are missing
/// or that go round in a circle, so every walk upwards ends after `maximumSteps`.
class CategoryTree {
public:
    static constexpr int maximumSteps = 8;

    /// The list must outlive the tree.
    explicit CategoryTree(const SharedArray<Category>& categories);

    [[nodiscard]] const Category* find(const UUID& id) const { return byID_.find(id); }
    [[nodiscard]] const std::string* path(const UUID& id) const;
    [[nodiscard]] std::vector<const Category*> sorted(CategoryKind kind) const;
    [[nodiscard]] std::vector<const Category*> children(const UUID& id) const;
    [[nodiscard]] std::vector<const Category*> topLevel(CategoryKind kind) const;
    [[nodiscard]] UUID topLevelID(const UUID& id) const;

private:
    [[nodiscard]] std::string makePath(const Category& category) const;
    [[nodiscard]] const std::vector<const Category*>& sortedByPath() const;

    const SharedArray<Category>& categories_;
    RecordsByID<Category> byID_;
    std::vector<std::string> paths_; // beside byID_.records()
    mutable std::once_flag groupedOnce_;
    mutable std::unordered_map<UUID, std::vector<const Category*>> children_; // as in the list
    mutable std::once_flag sortedOnce_;
    mutable std::vector<const Category*> sortedByPath_;
};

} // namespace oakfen

#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "OakfenCore/Importers/StatementImporter.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

/// Chooses the category of each line of a statement: the one that the line names, else the one
/// under which its payee was filed last. Asks the document but once for each name. The index must
/// outlive it.
class CategoryChooser {
public:
    explicit CategoryChooser(const LibraryIndex& index) : index_(index) {}

    /// Nothing for a line that stays without a category.
    [[nodiscard]] std::optional<UUID> category(const ImportedTransaction& item);

    /// Whether the line names a category that the document doesn't have.
    [[nodiscard]] bool namesUnknownCategory(const ImportedTransaction& item);

private:
    [[nodiscard]] std::optional<UUID> categoryOfName(const std::string& name);

    const LibraryIndex& index_;
    std::unordered_map<std::string, std::optional<UUID>> named_;
};

} // namespace oakfen

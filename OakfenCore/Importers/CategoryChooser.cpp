#include "OakfenCore/Importers/CategoryChooser.h"

#include "OakfenCore/LibraryOperations/Categories.h"

namespace oakfen {

namespace {

bool namesCategory(const ImportedTransaction& item) {
    return item.categoryName && !item.categoryName->empty();
}

} // namespace

std::optional<UUID> CategoryChooser::category(const ImportedTransaction& item) {
    if (namesCategory(item)) {
        if (const auto named = categoryOfName(*item.categoryName)) {
            return named;
        }
    }
    const Transaction* memorized = index_.memorized(item.payee);
    return memorized != nullptr && !memorized->isTransfer() ? memorized->categoryID : std::nullopt;
}

bool CategoryChooser::namesUnknownCategory(const ImportedTransaction& item) {
    return namesCategory(item) && !categoryOfName(*item.categoryName);
}

std::optional<UUID> CategoryChooser::categoryOfName(const std::string& name) {
    const auto [place, isNew] = named_.try_emplace(name);
    if (isNew) {
        if (const Category* found = categoryNamed(index_.library(), name)) {
            place->second = found->id;
        }
    }
    return place->second;
}

} // namespace oakfen

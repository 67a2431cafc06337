#include <utility>

#include "OakfenCore/LibraryIndex/IndexTables.h"
#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

const std::string* LibraryIndex::categoryPath(const UUID& id) const {
    return tables_->categories.path(id);
}

std::string LibraryIndex::categoryName(const std::optional<UUID>& id) const {
    const std::string* path = id ? categoryPath(*id) : nullptr;
    return path ? *path : "Uncategorized";
}

std::string LibraryIndex::categoryDescription(const Transaction& transaction) const {
    if (transaction.transferAccountID) {
        const Account* other = account(*transaction.transferAccountID);
        return "[" + (other ? other->name : "Deleted Account") + "]";
    }
    if (transaction.isSplit()) {
        return "— Split (" + std::to_string(transaction.splits.size()) + ") —";
    }
    return categoryName(transaction.categoryID);
}

std::vector<const Category*> LibraryIndex::sortedCategories(CategoryKind kind) const {
    return tables_->categories.sorted(kind);
}

std::vector<const Category*> LibraryIndex::children(const UUID& id) const {
    return tables_->categories.children(id);
}

std::vector<const Category*> LibraryIndex::topLevelCategories(CategoryKind kind) const {
    return tables_->categories.topLevel(kind);
}

UUID LibraryIndex::topLevelID(const UUID& id) const {
    return tables_->categories.topLevelID(id);
}

std::vector<CategoryLine> LibraryIndex::categoryLines(const DateInterval& interval) const {
    std::vector<CategoryLine> lines;
    for (const Transaction& entry : library().transactions) {
        if (!interval.contains(entry.date) || entry.isTransfer()) {
            continue;
        }
        const auto add = [&](const std::optional<UUID>& categoryID, const Decimal& amount) {
            lines.push_back(
                {entry.id, entry.accountID, entry.date, entry.payee, categoryID, amount});
        };
        if (!entry.isSplit()) {
            add(entry.categoryID, entry.amount);
        }
        for (const Split& split : entry.splits) {
            add(split.categoryID, split.amount);
        }
    }
    return lines;
}

bool LibraryIndex::isIncomeLine(const CategoryLine& line) const {
    const Category* filed = line.categoryID ? category(*line.categoryID) : nullptr;
    return filed ? filed->kind == CategoryKind::income : line.amount.isPositive();
}

int LibraryIndex::uncategorizedCount() const {
    return tables_->uncategorizedCount;
}

} // namespace oakfen

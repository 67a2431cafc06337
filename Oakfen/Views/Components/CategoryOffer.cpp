#include "Oakfen/Views/Components/CategoryOffer.h"

#include <algorithm>
#include <utility>

#include "OakfenCore/LibraryOperations/Categories.h"
#include "OakfenCore/Support/Text/Quotation.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

std::string CategoryOffer::title() const {
    return "Create " + quoted(path);
}

CategoryOffer categoryOffer(const Library& library, std::string_view typed) {
    const std::vector<std::string> names = namesOfPath(singleLine(typed));
    if (names.empty()) {
        return {};
    }
    CategoryOffer offer{.path = joined(names, ": ")};
    if (const Category* known = categoryNamed(library, offer.path)) {
        offer.known = known->id;
        if (names.size() != mostCategoryLevels || hasParentNamed(library, *known, names.front())) {
            offer.path.clear();
        }
    }
    if (offer.path.empty()) {
        return offer;
    }
    const auto refuse = [&offer](std::string remark) {
        offer.path.clear();
        offer.remark = std::move(remark);
    };
    if (names.size() > mostCategoryLevels) {
        refuse("A category can have one parent, and none above it.");
    } else if (names.size() == mostCategoryLevels) {
        const Category* parent = categoryNamed(library, names.front());
        if (parent != nullptr &&
            topLevelCategoryNamed(library, names.front(), CategoryKind::expense) == nullptr) {
            refuse(quoted(parent->name) + " has a parent, so it can have no subcategories.");
        }
    }
    return offer;
}

UUID CategoryPlan::plan(const std::string& path) {
    const auto known = std::ranges::find_if(
        planned_, [&](const PickerRow& each) { return equalsCaseInsensitively(each.title, path); });
    if (known != planned_.end()) {
        return *known->id;
    }
    const UUID id = UUID::random();
    planned_.push_back({.title = path, .id = id});
    return id;
}

std::vector<PickerRow> CategoryPlan::listedAfter(std::vector<PickerRow> rows) const {
    if (!planned_.empty()) {
        rows.push_back({.title = "New", .isHeader = true});
        rows.insert(rows.end(), planned_.begin(), planned_.end());
    }
    return rows;
}

std::optional<UUID> CategoryPlan::made(Library& library, const std::optional<UUID>& id,
                                       CategoryKind kind) const {
    const auto planned =
        std::ranges::find_if(planned_, [&](const PickerRow& each) { return id && each.id == id; });
    return planned == planned_.end() ? id : categoryFor(library, planned->title, kind);
}

} // namespace oakfen

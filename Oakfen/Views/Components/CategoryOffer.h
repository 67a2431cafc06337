#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/Components/Components.h"
#include "OakfenCore/Models/Library.h"

namespace oakfen {

/// What can be made of a text that was typed for a category.
struct CategoryOffer {
    /// "Pets: Vet"; empty where nothing is to be made.
    std::string path = {};
    /// Why nothing can be made; empty where there is no need for it or none to say so.
    std::string remark = {};
    /// The category that the lookup by a typed path finds, which may have another parent.
    std::optional<UUID> known = {};

    /// "Create “Pets: Vet”".
    [[nodiscard]] std::string title() const;

    friend bool operator==(const CategoryOffer&, const CategoryOffer&) = default;
};

/// A category of that path, unless there is one; it may have a parent, but no more above it.
[[nodiscard]] CategoryOffer categoryOffer(const Library& library, std::string_view typed);

/// Categories that a draft is filed under and that nobody has made yet: saving the draft does, and
/// cancelling it makes nothing. Until then each is known by an id of its own.
class CategoryPlan {
public:
    /// Plans the category of that path, and returns its id; the same for the same path.
    UUID plan(const std::string& path);

    /// The rows with those that are planned at their end.
    [[nodiscard]] std::vector<PickerRow> listedAfter(std::vector<PickerRow> rows) const;

    /// The id that a record can be stored with: a planned category is looked up in the document
    /// once more, and made of the kind where it is missing. Other ids stay as they are.
    [[nodiscard]] std::optional<UUID> made(Library& library, const std::optional<UUID>& id,
                                           CategoryKind kind) const;

    friend bool operator==(const CategoryPlan&, const CategoryPlan&) = default;

private:
    /// Their full paths as titles.
    std::vector<PickerRow> planned_;
};

} // namespace oakfen

#pragma once

#include <memory>
#include <vector>

#include "Oakfen/MenuEntry.h"
#include "Oakfen/Views/Categories/CategoryTable.h"
#include "Oakfen/Views/Screen.h"

namespace oakfen {

class Actuals;

struct CategoriesContent {
    CategoryKind kind = CategoryKind::expense;
    /// The tops of the tree by name, each followed by its subcategories.
    std::shared_ptr<const Table<CategoryRow>> table = {};

    friend bool operator==(const CategoriesContent&, const CategoriesContent&) = default;
};

/// The categories of one kind as a tree, with what they came to since the beginning of the year.
class CategoriesView final : public Screen<CategoriesContent> {
public:
    explicit CategoriesView(AppEnvironment& environment);

    void setKind(CategoryKind kind);
    /// A new one of the kind that is shown.
    void newCategory();
    void edit(const UUID& id);
    /// Asks whether to delete the category, and does so if confirmed.
    void requestDeletion(const UUID& id);
    /// Shows what makes up the total of the category's row.
    void showEntries(const UUID& id);
    /// The lines of a row's context menu; none for a category that is gone.
    [[nodiscard]] std::vector<MenuEntry> contextMenu(const UUID& id);

protected:
    [[nodiscard]] CategoriesContent derive(const CategoriesContent* earlier) const override;

private:
    [[nodiscard]] DateInterval yearToDate() const;
    [[nodiscard]] CategoryRow row(const Category& category, const Category* parent,
                                  const Actuals& actuals) const;

    CategoryKind kind_ = CategoryKind::expense;
    Subscription dayChanged_;
};

} // namespace oakfen

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Components/Components.h"
#include "Oakfen/Views/Editor.h"

namespace oakfen {

/// The sheet that creates a category or changes one.
class CategoryEditor final : public Editor {
public:
    /// Without an id, a new category of the sheet's kind.
    CategoryEditor(AppEnvironment& environment, const ActiveSheet::Category& sheet);

    // The form. What it belongs to stands beside the draft, and the kind is set by `setKind`.
    Category draft;
    std::optional<UUID> parent;

    /// A parent of the other kind goes.
    void setKind(CategoryKind kind);

    [[nodiscard]] bool isNew() const { return isNew_; }
    [[nodiscard]] std::string title() const override;
    [[nodiscard]] std::string primaryTitle() const override { return "Save"; }
    [[nodiscard]] std::optional<std::string> obstacle() const override;
    void save() override;

    /// None, then what the category can belong to. What has subcategories stays at the top.
    [[nodiscard]] std::vector<PickerRow> parentRows() const;
    /// That the name is taken, or kept in another form; may be empty.
    [[nodiscard]] std::string nameHint() const;
    /// What a change of the kind leaves as it is; may be empty.
    [[nodiscard]] std::string kindHint() const;

private:
    /// As it is stored: the colon parts the names of a path.
    [[nodiscard]] std::string keptName() const;
    [[nodiscard]] bool hasChildren() const;
    [[nodiscard]] bool isPathTaken() const;

    AppEnvironment& environment_;
    bool isNew_ = true;
};

} // namespace oakfen

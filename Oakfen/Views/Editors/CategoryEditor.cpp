#include "Oakfen/Views/Editors/CategoryEditor.h"

#include <algorithm>
#include <utility>

#include "OakfenCore/LibraryOperations/Categories.h"
#include "OakfenCore/Support/Text/Quotation.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

CategoryEditor::CategoryEditor(AppEnvironment& environment, const ActiveSheet::Category& sheet)
    : environment_(environment) {
    const Category* category = sheet.id ? environment.store.index().category(*sheet.id) : nullptr;
    if (category != nullptr) {
        isNew_ = false;
        draft = *category;
        // A document may name a category as its own parent, which leads nowhere.
        parent = category->parentID == category->id ? std::nullopt : category->parentID;
    } else {
        draft.id = UUID::random();
        draft.kind = sheet.kind;
    }
}

void CategoryEditor::setKind(CategoryKind kind) {
    draft.kind = kind;
    const Category* above = parent ? environment_.store.index().category(*parent) : nullptr;
    if (above != nullptr && above->kind != kind) {
        parent.reset();
    }
}

std::string CategoryEditor::title() const {
    return isNew() ? "New Category" : "Edit Category";
}

std::optional<std::string> CategoryEditor::obstacle() const {
    if (trimmingWhitespaces(draft.name).empty()) {
        return "Enter a name.";
    }
    return std::nullopt;
}

std::string CategoryEditor::keptName() const {
    return replacingAll(trimmingWhitespaces(draft.name), ":", "-");
}

void CategoryEditor::save() {
    draft.name = keptName();
    draft.parentID = parent;
    environment_.store.mutate(title(), [this](Library& library) { upsert(library, draft); });
}

bool CategoryEditor::hasChildren() const {
    return !isNew() &&
           std::ranges::any_of(environment_.store.index().children(draft.id),
                               [this](const Category* each) { return each->id != draft.id; });
}

std::vector<PickerRow> CategoryEditor::parentRows() const {
    const LibraryIndex& index = environment_.store.index();
    std::vector<PickerRow> rows{{.title = "None (Top Level)"}};
    if (!hasChildren()) {
        for (const Category* each : index.topLevelCategories(draft.kind)) {
            if (each->id != draft.id) {
                rows.push_back({.title = each->name, .id = each->id});
            }
        }
    }
    if (parent) {
        rows = keepingChoice(std::move(rows), {.title = index.categoryName(parent), .id = parent});
    }
    return rows;
}

bool CategoryEditor::isPathTaken() const {
    const std::string name = keptName();
    return std::ranges::any_of(environment_.store.library().categories, [&](const Category& each) {
        return each.id != draft.id && each.parentID == parent &&
               equalsCaseInsensitively(each.name, name);
    });
}

std::string CategoryEditor::nameHint() const {
    if (isPathTaken()) {
        return "There is another category of this path.";
    }
    if (draft.name.find(':') != std::string::npos) {
        return "It is kept as " + quoted(keptName()) + ", since a colon parts the names of a path.";
    }
    return {};
}

std::string CategoryEditor::kindHint() const {
    const LibraryIndex& index = environment_.store.index();
    const Category* earlier = isNew() ? nullptr : index.category(draft.id);
    if (earlier == nullptr || earlier->kind == draft.kind || !hasChildren()) {
        return {};
    }
    return "Its subcategories keep their type.";
}

} // namespace oakfen

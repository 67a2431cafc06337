#include <algorithm>

#include "Oakfen/Views/Editors/TransactionEditor.h"

// What an entry and its lines are filed under, also where nobody has made that category yet.
namespace oakfen {

std::vector<PickerRow> TransactionEditor::categoryChoices(const std::optional<UUID>& chosen) const {
    return keepingChoice(plan_.listedAfter(categoryPickerRows(environment_.store.index())),
                         {.title = "Unknown Category", .id = chosen});
}

CategoryOffer TransactionEditor::categoryOffer(std::string_view typed) const {
    return oakfen::categoryOffer(environment_.store.library(), typed);
}

PickerRow TransactionEditor::planCategory(const std::string& path) {
    return {.title = path, .id = plan_.plan(path)};
}

void TransactionEditor::makeCategories(Library& library, Transaction& entry) const {
    if (entry.transferAccountID) {
        return; // it has none
    }
    const auto make = [&](std::optional<UUID>& id, const Decimal& value) {
        const bool isIn = value.isZero() ? kind_ == Kind::deposit : value.isPositive();
        id = plan_.made(library, id, isIn ? CategoryKind::income : CategoryKind::expense);
    };
    make(entry.categoryID, entry.amount);
    for (Split& line : entry.splits) {
        make(line.categoryID, line.amount);
    }
}

void TransactionEditor::rememberCategories(const Transaction& stored) const {
    const auto remember = [this](const std::optional<UUID>& id) {
        if (id) {
            environment_.appState.rememberCategory(*id);
        }
    };
    remember(stored.categoryID);
    std::ranges::for_each(stored.splits, remember, &Split::categoryID);
}

} // namespace oakfen

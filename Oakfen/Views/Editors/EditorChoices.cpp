#include "Oakfen/Views/Editors/EditorChoices.h"

#include <utility>

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

constexpr std::size_t mostSuggestions = 8;

} // namespace

std::vector<std::string> payeeSuggestions(const LibraryIndex& index, std::string_view typed) {
    const std::string_view term = trimmingWhitespaces(typed);
    std::vector<std::string> suggestions;
    if (term.empty()) {
        return suggestions;
    }
    const CaseInsensitiveTerm sought(term);
    for (const std::string& payee : index.payees()) {
        if (payee != term && sought.isIn(payee)) {
            suggestions.push_back(payee);
            if (suggestions.size() == mostSuggestions) {
                break;
            }
        }
    }
    return suggestions;
}

std::vector<PickerRow> keepingAccount(std::vector<PickerRow> rows, const LibraryIndex& index,
                                      const std::optional<UUID>& id) {
    if (!id) {
        return rows;
    }
    const Account* account = index.account(*id);
    return keepingChoice(
        std::move(rows),
        {.title = account != nullptr ? account->name : std::string("Unknown Account"), .id = id});
}

} // namespace oakfen

#include "Oakfen/Views/Register/FindContent.h"

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

std::optional<EmptyState> FindContent::emptyState() const {
    if (table->rowCount() > 0) {
        return std::nullopt;
    }
    if (trimmingWhitespaces(searchText).empty()) {
        return EmptyState{.title = "No Transactions",
                          .symbolName = "list.bullet.rectangle",
                          .text = "What you enter or import into any account is found here."};
    }
    return noResults(searchText, "Check the spelling, or try another search.");
}

} // namespace oakfen

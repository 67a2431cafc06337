#include "Oakfen/Views/Register/RegisterContent.h"

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

std::optional<EmptyState> RegisterContent::emptyState() const {
    if (table->rowCount() > 0) {
        return std::nullopt;
    }
    if (!isNarrowed()) {
        return EmptyState{.title = "No Transactions",
                          .symbolName = "list.bullet.rectangle",
                          .text = "Add a transaction or import a statement from your bank."};
    }
    const std::string_view term = trimmingWhitespaces(searchText);
    return EmptyState{.title = term.empty() ? "No Results"
                                            : "No Results for “" + std::string(term) + "”",
                      .symbolName = "magnifyingglass",
                      .text = "Check the spelling, or try another search or filter."};
}

} // namespace oakfen

#include "Oakfen/Views/Register/RegisterContent.h"

#include "Oakfen/Views/Components/Components.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// The beginning of a term, enough to know it again.
std::string shortened(std::string_view term) {
    constexpr std::size_t most = 40;
    std::string beginning;
    std::size_t count = 0;
    forEachCharacter(term, [&](std::string_view character) {
        if (++count <= most) {
            beginning += character;
        }
    });
    return count > most ? beginning + "…" : beginning;
}

} // namespace

EmptyState noResults(std::string_view searchText, std::string_view advice) {
    const std::string line = singleLine(searchText);
    const std::string_view term = trimmingWhitespaces(line);
    return {.title = term.empty() ? "No Results" : "No Results for “" + shortened(term) + "”",
            .symbolName = "magnifyingglass",
            .text = std::string(advice)};
}

std::optional<EmptyState> RegisterContent::emptyState() const {
    if (table->rowCount() > 0) {
        return std::nullopt;
    }
    if (!isNarrowed()) {
        return EmptyState{.title = "No Transactions",
                          .symbolName = "list.bullet.rectangle",
                          .text = "Add a transaction or import a statement from your bank."};
    }
    return noResults(searchText, "Check the spelling, or try another search or filter.");
}

} // namespace oakfen

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Oakfen/Views/Components/Components.h"

/// What the editors of entries and of reminders offer alike.
namespace oakfen {

/// At most eight known payees with the typed text in their name.
[[nodiscard]] std::vector<std::string> payeeSuggestions(const LibraryIndex& index,
                                                        std::string_view typed);

/// The rows with that account among them, if any: a closed one stays what it is until the person
/// chooses another.
[[nodiscard]] std::vector<PickerRow> keepingAccount(std::vector<PickerRow> rows,
                                                    const LibraryIndex& index,
                                                    const std::optional<UUID>& id);

} // namespace oakfen

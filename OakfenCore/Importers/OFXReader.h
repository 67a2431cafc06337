#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "OakfenCore/Importers/StatementImporter.h"

namespace oakfen {

/// The entries of an OFX statement, SGML or XML: a few tags of each transaction's block. Accounts,
/// currencies and balances are not read.
[[nodiscard]] std::vector<ImportedTransaction> readOFX(std::string_view text,
                                                       const Calendar& calendar);

/// What stands behind the tag's first occurrence in the block, up to the next tag or line end, as a
/// piece of the block; nothing when there is no such tag or no text.
[[nodiscard]] std::optional<std::string_view> ofxValue(std::string_view tag,
                                                       std::string_view block);

} // namespace oakfen

#pragma once

#include <string>
#include <string_view>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// Stores the account in one step. If that closes it while there is something in it, a notice says
/// what net worth no longer counts, and offers to undo that.
void storeAccount(AppEnvironment& environment, const std::string& actionName,
                  const Account& account);

/// "Net worth no longer counts $312,000.00 owed in “Mortgage”."; empty for a balance that shows as
/// nothing.
[[nodiscard]] std::string closingText(const Account& account, const Decimal& balance,
                                      std::string_view currencyCode);

} // namespace oakfen

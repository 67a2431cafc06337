#pragma once

#include "OakfenCore/Models/Records.h"

/// The arithmetic of one investment row, and a security's price by date.
namespace oakfen {

/// What the row does to the account's cash: a purchase with its commission takes it, a sale less
/// its commission and earnings bring it, and what moves only shares leaves it alone.
[[nodiscard]] Decimal cashEffect(const InvestmentTransaction& row);

/// The row's worth without commission: shares times price, or the amount of earnings in cash.
[[nodiscard]] Decimal grossValue(const InvestmentTransaction& row);

/// The shares that the row adds; negative for those that it takes away.
[[nodiscard]] Decimal shareDelta(const InvestmentTransaction& row);

/// The price in force at that date: the latest point of the history on or before it, the oldest one
/// for a date before all of them, and the current price without a history.
[[nodiscard]] Decimal priceOn(const Security& security, Date date);

} // namespace oakfen

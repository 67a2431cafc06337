#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Support/Number/Decimal.h"
#include "OakfenCore/Support/Text/Locale.h"
#include "OakfenCore/Support/Time/Calendar.h"
#include "OakfenCore/Support/Time/Date.h"

/// Numbers, money and dates as people read them, in the user's locales.
namespace oakfen {

/// The code of the locale's currency; "CAD" when it has none.
[[nodiscard]] std::string localeCurrencyCode();

/// The currency's name in the user's locale; empty when it has none there.
[[nodiscard]] std::string currencyName(std::string_view currencyCode);

/// All ISO 4217 codes in present use, sorted.
[[nodiscard]] const std::vector<std::string>& currencyCodes();

/// "$1,234.50": money with the currency's digits, rounded half up.
[[nodiscard]] std::string currencyText(const Decimal& amount, std::string_view currencyCode);

/// "$1.2K": money in few characters (three digits at most), for the axis of a chart.
[[nodiscard]] std::string compactCurrencyText(const Decimal& amount, std::string_view currencyCode);

/// A number with exactly so many decimals and the locale's grouping.
[[nodiscard]] std::string numberText(const Decimal& value, int fractionDigits);

/// "1,234": a count with the locale's grouping.
[[nodiscard]] std::string countText(std::size_t count);

/// "45%" for 0.45, with exactly so many decimals.
[[nodiscard]] std::string percentText(double fraction, int fractionDigits = 0);

/// Numeric year, two-digit month and day, in the locale's order.
[[nodiscard]] std::string numericDateText(Date date, const Calendar& calendar);

/// Abbreviated month and day number: "Mar 5".
[[nodiscard]] std::string abbreviatedMonthDayText(Date date, const Calendar& calendar);

/// Abbreviated month, day number and year: "Mar 5, 2026".
[[nodiscard]] std::string abbreviatedDateText(Date date, const Calendar& calendar);

/// Weekday, month, day and year in full.
[[nodiscard]] std::string completeDateText(Date date, const Calendar& calendar);

} // namespace oakfen

#pragma once

#include <vector>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// What was owned and owed at one instant, closed accounts included; to the cent.
struct NetWorthPoint {
    Date date;
    Decimal assets;
    /// Zero or negative.
    Decimal liabilities;

    [[nodiscard]] Decimal netWorth() const { return assets + liabilities; }

    friend bool operator==(const NetWorthPoint&, const NetWorthPoint&) = default;
};

/// One point a month, the oldest first, at the ends of past months and now for the present one. At
/// most `months` points, none before the month in which the first account was opened.
[[nodiscard]] std::vector<NetWorthPoint> netWorthSeries(const LibraryIndex& index, int months,
                                                        const Calendar& calendar);

} // namespace oakfen

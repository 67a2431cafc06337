#pragma once

#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// Replaces the security with that id in place, else appends it.
void upsert(Library& library, Security security);

/// Records a price: it becomes the current one whatever its date, and the only one of its day. A
/// price that isn't above zero is refused silently.
void updatePrice(Library& library, const UUID& securityID, const Decimal& price, Date date,
                 const Calendar& calendar);

/// Removes the security and every investment row that names it.
void deleteSecurity(Library& library, const UUID& id);

/// Replaces the row with that id in place, else appends it.
void upsert(Library& library, InvestmentTransaction row);

void deleteInvestmentTransactions(Library& library, const UUIDSet& ids);

} // namespace oakfen

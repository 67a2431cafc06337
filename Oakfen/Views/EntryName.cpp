#include "Oakfen/Views/EntryName.h"

#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

std::string entryName(const Transaction& entry, const CellContext& context) {
    return (entry.payee.empty() ? std::string("No payee") : quoted(drawnText(entry.payee))) + ", " +
           moneyText(entry.amount, context.currencyCode).text + ", " +
           numericDateText(entry.date, context.calendar);
}

} // namespace oakfen

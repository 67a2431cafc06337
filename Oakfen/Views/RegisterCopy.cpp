#include "Oakfen/Views/RegisterCopy.h"

#include <algorithm>
#include <vector>

#include "Oakfen/Views/Components.h"
#include "Oakfen/Views/RegisterSort.h"
#include "OakfenCore/Exporters/Exporter.h"
#include "OakfenCore/Support/Text.h"

namespace oakfen {

namespace {

/// A text that neither ends its cell nor becomes a formula where it is pasted.
std::string cellText(std::string_view text) {
    std::string cell = singleLine(text);
    std::ranges::replace(cell, '\t', ' ');
    return Exporter::guarded(cell);
}

std::string cellText(const RegisterRow& row, RegisterColumn column, const Calendar& calendar) {
    const auto unlessZero = [](const Decimal& amount) {
        return amount.isZero() ? std::string() : Exporter::plain(amount);
    };
    switch (column) {
    case RegisterColumn::cleared:
        return std::string(title(row.cleared));
    case RegisterColumn::date:
        return Exporter::isoDate(row.date, calendar);
    case RegisterColumn::number:
        return cellText(row.checkNumber);
    case RegisterColumn::payee:
        return cellText(row.payee);
    case RegisterColumn::category:
        return cellText(row.categoryName);
    case RegisterColumn::tags:
        return cellText(joined(row.tags, ", "));
    case RegisterColumn::payment:
        return unlessZero(row.payment());
    case RegisterColumn::deposit:
        return unlessZero(row.deposit());
    case RegisterColumn::balance:
        return Exporter::plain(row.balance);
    }
    return {};
}

} // namespace

std::string copiedLine(const RegisterRow& row, const Calendar& calendar) {
    std::vector<std::string> cells;
    for (const RegisterColumn column : allCases<RegisterColumn>) {
        cells.push_back(cellText(row, column, calendar));
    }
    return joined(cells, "\t");
}

} // namespace oakfen

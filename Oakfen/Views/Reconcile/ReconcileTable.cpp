#include "Oakfen/Views/Reconcile/ReconcileTable.h"

namespace oakfen {

namespace {

using EntryColumn = Column<ReconcileRow>;

void dressTick(Cell& cell, const ReconcileRow& row, const CellContext& /*context*/) {
    cell.spoken = row.isChecked ? "On the statement" : "Not on the statement";
}

void dressEntry(Cell& cell, const ReconcileRow& row, const CellContext& /*context*/) {
    cell.toolTip = singleLine(row.memo);
}

void dressPayee(Cell& cell, const ReconcileRow& row, const CellContext& context) {
    dressEntry(cell, row, context);
    cell.detail = drawnText(row.memo);
}

} // namespace

const Columns<ReconcileRow>& reconcileColumns() {
    using Row = ReconcileRow;
    static const Columns<Row> columns{
        {.head = {.id = "checked", .spoken = "On the statement", .width = 36},
         .value = EntryColumn::Tick{[](const Row& row) { return row.isChecked; }},
         .dress = dressTick},
        {.head = {.id = "date", .title = "Date", .width = 104},
         .value = EntryColumn::Day{[](const Row& row) { return row.date; }},
         .dress = dressEntry},
        {.head =
             {.id = "payee", .title = "Payee", .width = 260, .stretches = true, .isSearched = true},
         .value = EntryColumn::Text{[](const Row& row) { return row.payee; }},
         .dress = dressPayee},
        {.head = {.id = "amount", .title = "Amount", .width = 130},
         .value = EntryColumn::Money{[](const Row& row) { return row.amount; }},
         .dress = dressEntry}};
    return columns;
}

} // namespace oakfen

#include "Oakfen/Views/Reconcile/ReconcileView.h"

#include <utility>

#include "OakfenCore/LibraryOperations/Reconciliation.h"

namespace oakfen {

std::string_view ReconcileContent::obstacle() const {
    return difference.isNaN() ? "The difference is too large to enter as an adjustment." : "";
}

std::string_view ReconcileContent::finishTitle() const {
    return isMatched() ? "Finish" : "Finish with Adjustment";
}

std::string_view ReconcileContent::finishHelp() const {
    return isMatched() ? "Mark ticked transactions as reconciled"
                       : "Adds a balance adjustment for the difference";
}

ReconcileView::ReconcileView(AppEnvironment& environment, const UUID& accountID)
    : Screen(environment), accountID_(accountID), statementDate_(environment.clock.now()),
      statementBalance_(environment.store.index().clearedBalance(accountID)) {
    for (const Transaction* entry : environment.store.index().transactions(accountID)) {
        if (entry->cleared == ClearedState::cleared) {
            checked_.insert(entry->id);
        }
    }
}

void ReconcileView::setStatementDate(Date date) {
    statementDate_ = date;
    stateChanged();
}

void ReconcileView::setStatementBalance(const Decimal& balance) {
    statementBalance_ = balance;
    stateChanged();
}

std::string ReconcileView::heading(const Account& account) {
    return "Reconcile " + account.name;
}

std::string_view ReconcileView::instructions() {
    return "Tick each transaction that appears on your statement. When the difference is zero, "
           "your register matches the bank.";
}

void ReconcileView::setChecked(const std::vector<UUID>& ids, bool isChecked) {
    for (const UUID& id : ids) {
        if (isChecked) {
            checked_.insert(id);
        } else {
            checked_.erase(id);
        }
    }
    stateChanged();
}

void ReconcileView::markAll() {
    const auto shown = content();
    checked_.clear();
    checked_.reserve(shown->table->rowCount());
    for (const ReconcileRow* row : shown->table->rows()) {
        checked_.insert(row->id);
    }
    stateChanged();
}

void ReconcileView::finish() {
    const Decimal adjustment = content()->difference;
    stopFollowingLibrary();
    environment_.store.mutate("Reconcile", [&](Library& library) {
        reconcile(library, accountID_, checked_, statementDate_, adjustment);
    });
}

ReconcileContent ReconcileView::derive(const ReconcileContent* earlier) const {
    const auto index = environment_.store.sharedIndex();
    const Date end = environment_.clock.calendar().endOfDay(statementDate_);
    std::vector<ReconcileRow> rows;
    for (const Transaction* entry : index->transactions(accountID_)) {
        if (entry->cleared != ClearedState::reconciled && entry->date <= end) {
            rows.push_back({.id = entry->id,
                            .date = entry->date,
                            .payee = entry->payee,
                            .memo = entry->memo,
                            .amount = entry->amount,
                            .isChecked = checked_.contains(entry->id)});
        }
    }
    const Decimal reconciled = index->reconciledBalance(accountID_);
    const Decimal cleared = reconciled + sum(rows, [](const ReconcileRow& row) {
                                return row.isChecked ? row.amount : Decimal();
                            });
    return {.table = keepingEqual(earlier != nullptr ? earlier->table : nullptr,
                                  std::make_shared<const Table<ReconcileRow>>(
                                      reconcileColumns(), std::move(rows), index, cellContext())),
            .reconciled = reconciled,
            .clearedTotal = cleared,
            .difference = statementBalance_ - cleared};
}

} // namespace oakfen

#include "Oakfen/Views/ReconcileView.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "OakfenCore/LibraryOperations/Reconciliation.h"

namespace oakfen {

ReconcileView::ReconcileView(AppEnvironment& environment, const UUID& accountID)
    : statementDate(environment.clock.now()),
      statementBalance(environment.store.index().clearedBalance(accountID)),
      environment_(environment), accountID_(accountID) {
    for (const Transaction* entry : environment.store.index().transactions(accountID)) {
        if (entry->cleared == ClearedState::cleared) {
            checked_.insert(entry->id);
        }
    }
}

std::string ReconcileView::heading(const Account& account) {
    return "Reconcile " + account.name;
}

std::string_view ReconcileView::instructions() {
    return "Tick each transaction that appears on your statement. When the difference is zero, "
           "your register matches the bank.";
}

const std::vector<const Transaction*>& ReconcileView::rows() const {
    auto index = environment_.store.sharedIndex();
    const Date end = environment_.clock.calendar().endOfDay(statementDate);
    if (index == rowsIndex_ && end == rowsEnd_) {
        return rows_;
    }
    rows_.clear();
    checkedSum_.reset();
    std::ranges::copy_if(index->transactions(accountID_), std::back_inserter(rows_),
                         [end](const Transaction* entry) {
                             return entry->cleared != ClearedState::reconciled &&
                                    entry->date <= end;
                         });
    rowsIndex_ = std::move(index);
    rowsEnd_ = end;
    return rows_;
}

Decimal ReconcileView::reconciled() const {
    return environment_.store.index().reconciledBalance(accountID_);
}

Decimal ReconcileView::clearedTotal() const {
    const auto& shown = rows();
    if (!checkedSum_) {
        checkedSum_ = sum(shown, [this](const Transaction* entry) {
            return isChecked(entry->id) ? entry->amount : Decimal();
        });
    }
    return reconciled() + *checkedSum_;
}

Decimal ReconcileView::difference() const {
    return statementBalance - clearedTotal();
}

void ReconcileView::setChecked(const UUID& id, bool isChecked) {
    checkedSum_.reset();
    if (isChecked) {
        checked_.insert(id);
    } else {
        checked_.erase(id);
    }
}

void ReconcileView::markAll() {
    checkedSum_.reset();
    checked_.clear();
    checked_.reserve(rows().size());
    for (const Transaction* entry : rows()) {
        checked_.insert(entry->id);
    }
}

std::string_view ReconcileView::obstacle() const {
    return difference().isNaN() ? "The difference is too large to enter as an adjustment." : "";
}

std::string_view ReconcileView::finishTitle() const {
    return difference().isZero() ? "Finish" : "Finish with Adjustment";
}

std::string_view ReconcileView::finishHelp() const {
    return difference().isZero() ? "Mark ticked transactions as reconciled"
                                 : "Adds a balance adjustment for the difference";
}

void ReconcileView::finish() {
    environment_.store.mutate("Reconcile", [&, adjustment = difference()](Library& library) {
        reconcile(library, accountID_, checked_, statementDate, adjustment);
    });
}

} // namespace oakfen

#include "Oakfen/Views/Reconcile/ReconcileView.h"

#include <utility>

#include "OakfenCore/LibraryOperations/Reconciliation.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Quotation.h"

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

void ReconcileView::unmarkAll() {
    checked_.clear();
    stateChanged();
}

void ReconcileView::followHint() {
    if (const auto hint = content()->hint) {
        setChecked(hint->entryIDs, hint->ticks);
    }
}

void ReconcileView::saveForLater() {
    stopFollowingLibrary();
    environment_.store.mutate("Save for Later",
                              [&](Library& library) { keepTicks(library, accountID_, checked_); });
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
    const Date last = end();
    std::vector<ReconcileRow> rows;
    for (const Transaction* entry : index->transactions(accountID_)) {
        if (entry->cleared != ClearedState::reconciled && entry->date <= last) {
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
    ReconcileContent content{
        .table = keepingEqual(earlier != nullptr ? earlier->table : nullptr,
                              std::make_shared<const Table<ReconcileRow>>(
                                  reconcileColumns(), std::move(rows), index, cellContext())),
        .reconciled = reconciled,
        .clearedTotal = cleared,
        .difference = statementBalance_ - cleared,
        .canUnmark = !checked_.empty()};
    content.verdict = verdict(content);
    content.hint = hint(content);
    return content;
}

std::string ReconcileView::verdict(const ReconcileContent& content) const {
    if (!content.canFinish()) {
        return std::string(content.obstacle());
    }
    if (content.isMatched()) {
        return "Your register matches the statement";
    }
    return "Your register doesn’t match the statement yet: finishing adds an adjustment of " +
           currencyText(content.difference, environment_.currencyCode());
}

std::optional<ReconcileHint> ReconcileView::hint(const ReconcileContent& content) const {
    auto found = content.isMatched() ? std::nullopt : matchingEntryHint(content);
    return found ? found : hiddenTicksHint();
}

std::optional<ReconcileHint>
ReconcileView::matchingEntryHint(const ReconcileContent& content) const {
    std::vector<const ReconcileRow*> toTick;
    std::vector<const ReconcileRow*> toUntick;
    for (const ReconcileRow* row : content.table->rows()) {
        if (!row->isChecked && row->amount == content.difference) {
            toTick.push_back(row);
        } else if (row->isChecked && row->amount == -content.difference) {
            toUntick.push_back(row);
        }
    }
    const bool ticks = !toTick.empty();
    const auto& found = ticks ? toTick : toUntick;
    if (found.empty()) {
        return std::nullopt;
    }
    const ReconcileRow& entry = *found.front();
    std::string sentence =
        entry.payee.empty() ? "An entry without a payee" : quoted(drawnText(entry.payee));
    sentence += ", " + abbreviatedDateText(entry.date, environment_.clock.calendar());
    sentence += ticks ? ", is the whole difference" : ", is ticked and is the whole difference";
    if (found.size() > 1) {
        const std::size_t others = found.size() - 1;
        sentence += (others == 1 ? ", as is " : ", as are ") + countText(others) + " more";
    }
    return ReconcileHint{.sentence = std::move(sentence),
                         .buttonTitle = ticks ? "Tick It" : "Untick It",
                         .entryIDs = {entry.id},
                         .ticks = ticks};
}

std::optional<ReconcileHint> ReconcileView::hiddenTicksHint() const {
    const Date last = end();
    std::vector<UUID> hidden;
    for (const Transaction* entry : environment_.store.index().transactions(accountID_)) {
        if (entry->date > last && entry->cleared != ClearedState::reconciled &&
            checked_.contains(entry->id)) {
            hidden.push_back(entry->id);
        }
    }
    if (hidden.empty()) {
        return std::nullopt;
    }
    const bool isOne = hidden.size() == 1;
    return ReconcileHint{
        .sentence = isOne ? "A ticked entry after the statement’s date will be reconciled too"
                          : countText(hidden.size()) +
                                " ticked entries after the statement’s date will be reconciled too",
        .buttonTitle = isOne ? "Untick It" : "Untick Them",
        .entryIDs = std::move(hidden)};
}

} // namespace oakfen

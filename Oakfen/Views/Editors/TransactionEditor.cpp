#include "Oakfen/Views/Editors/TransactionEditor.h"

#include <algorithm>
#include <utility>

#include "Oakfen/Views/Editors/EditorChoices.h"
#include "Oakfen/Views/Editors/TagsText.h"
#include "Oakfen/Views/EntryName.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// The lines of a stored entry, in the direction of its kind.
std::vector<TransactionEditor::SplitDraft> splitDrafts(const Transaction& entry) {
    std::vector<TransactionEditor::SplitDraft> drafts;
    drafts.reserve(entry.splits.size());
    for (const Split& split : entry.splits) {
        drafts.push_back({.id = split.id,
                          .categoryID = split.categoryID,
                          .memo = split.memo,
                          .amount = entry.amount.isPositive() ? split.amount : -split.amount});
    }
    return drafts;
}

} // namespace

std::string_view title(TransactionEditor::Kind value) noexcept {
    switch (value) {
    case TransactionEditor::Kind::payment:
        return "Payment";
    case TransactionEditor::Kind::deposit:
        return "Deposit";
    case TransactionEditor::Kind::transfer:
        return "Transfer";
    }
    return {};
}

TransactionEditor::TransactionEditor(AppEnvironment& environment,
                                     const ActiveSheet::NewTransaction& sheet)
    : environment_(environment) {
    startEmpty(accountToBeginWith(sheet.accountID), environment.clock.now());
}

TransactionEditor::TransactionEditor(AppEnvironment& environment,
                                     const ActiveSheet::EditTransaction& sheet)
    : environment_(environment), transactionID_(sheet.id) {
    if (const Transaction* entry = environment.store.index().transaction(sheet.id)) {
        load(*entry);
    } else {
        startEmpty(accountToBeginWith(std::nullopt), environment.clock.now());
    }
}

std::optional<UUID> TransactionEditor::accountToBeginWith(const std::optional<UUID>& wanted) const {
    const LibraryIndex& index = environment_.store.index();
    if (wanted && index.account(*wanted) != nullptr) {
        return wanted;
    }
    auto candidates = index.accounts(AccountGroup::banking, false);
    if (candidates.empty()) {
        candidates = index.openAccounts();
    }
    return candidates.empty() ? std::nullopt : std::optional(candidates.front()->id);
}

void TransactionEditor::startEmpty(const std::optional<UUID>& accountID, Date date) {
    draft = {.id = UUID::random(), .accountID = accountID.value_or(UUID::random()), .date = date};
    kind_ = Kind::payment;
    accountSelection = accountID;
    transferSelection.reset();
    amount = Decimal();
    useSplits = false;
    splits.clear();
    tagsText.clear();
    transferIn = false;
}

void TransactionEditor::load(const Transaction& entry) {
    draft = entry;
    accountSelection = entry.accountID;
    transferSelection = entry.transferAccountID;
    amount = entry.amount.magnitude();
    kind_ = entry.isTransfer()          ? Kind::transfer
            : entry.amount.isPositive() ? Kind::deposit
                                        : Kind::payment;
    splits = splitDrafts(entry);
    // A file may hold a transfer with split lines; it is a transfer all the same.
    useSplits = entry.isSplit() && !entry.isTransfer();
    tagsText = joined(entry.tags, ", ");
    transferIn = entry.isTransfer() && entry.amount.isPositive();
}

void TransactionEditor::setKind(Kind kind) {
    kind_ = kind;
    if (kind == Kind::transfer) {
        useSplits = false;
    }
}

std::string TransactionEditor::title() const {
    return isNew() ? "New Transaction" : "Edit Transaction";
}

std::string TransactionEditor::subtitle() const {
    const bool isFirst = isNew() && savedText_.empty();
    return isFirst ? "Ctrl+Return saves and starts the next one." : savedText_;
}

std::string_view TransactionEditor::transferTitle() const {
    return transferIn ? "From Account" : "To Account";
}

std::vector<PickerRow> TransactionEditor::accountChoices() const {
    const LibraryIndex& index = environment_.store.index();
    return keepingAccount(accountPickerRows(index), index, accountSelection);
}

std::vector<PickerRow> TransactionEditor::transferChoices() const {
    const LibraryIndex& index = environment_.store.index();
    std::vector<PickerRow> rows = accountPickerRows(index, {.excluding = accountSelection});
    return transferSelection == accountSelection
               ? rows
               : keepingAccount(std::move(rows), index, transferSelection);
}

std::vector<std::string> TransactionEditor::payeeSuggestions() const {
    return oakfen::payeeSuggestions(environment_.store.index(), draft.payee);
}

bool TransactionEditor::applyMemorizedPayee() {
    // What an existing entry says was meant so.
    const Transaction* memory =
        isNew() ? environment_.store.index().memorized(draft.payee) : nullptr;
    if (memory == nullptr) {
        return false;
    }
    draft.payee = memory->payee;
    if (amount.isZero()) {
        amount = memory->amount.magnitude();
    }
    if (memory->isTransfer() && memory->transferAccountID != accountSelection) {
        setKind(Kind::transfer);
        transferSelection = memory->transferAccountID;
        transferIn = memory->amount.isPositive();
        return true;
    }
    if (memory->isSplit()) {
        splits = splitDrafts(*memory);
        for (SplitDraft& line : splits) {
            line.id = UUID::random();
        }
        useSplits = true;
    } else {
        draft.categoryID = memory->categoryID;
    }
    setKind(memory->amount.isPositive() ? Kind::deposit : Kind::payment);
    return true;
}

void TransactionEditor::splitAcrossCategories() {
    splits = {{.id = UUID::random(), .categoryID = draft.categoryID, .amount = amount},
              {.id = UUID::random()}};
    useSplits = true;
}

void TransactionEditor::addSplitLine() {
    splits.push_back({.id = UUID::random()});
}

void TransactionEditor::removeSplitLine(const UUID& id) {
    std::erase_if(splits, [&](const SplitDraft& line) { return line.id == id; });
}

void TransactionEditor::removeSplits() {
    useSplits = false;
    amount = splitsTotal();
    draft.categoryID = splits.empty() ? std::nullopt : splits.front().categoryID;
}

TransactionEditor::SplitDraft* TransactionEditor::splitLine(const UUID& id) {
    const auto line =
        std::ranges::find_if(splits, [&](const SplitDraft& each) { return each.id == id; });
    return line == splits.end() ? nullptr : &*line;
}

Decimal TransactionEditor::splitsTotal() const {
    return sum(splits, &SplitDraft::amount);
}

std::string TransactionEditor::remainderText() const {
    if (!useSplits || amount.isZero()) {
        return {};
    }
    const auto money = [this](const Decimal& value) {
        return currencyText(value, environment_.currencyCode());
    };
    const Decimal remainder = amount - splitsTotal();
    if (remainder.isZero()) {
        return {};
    }
    return remainder.isPositive() ? money(remainder) + " of " + money(amount) + " left to assign"
                                  : money(-remainder) + " more than " + money(amount);
}

std::optional<std::string> TransactionEditor::obstacle() const {
    if (!accountSelection) {
        return "Choose an account.";
    }
    if (trimmingWhitespaces(draft.payee).empty()) {
        return "Enter a payee.";
    }
    if (isTransfer() && (!transferSelection || transferSelection == accountSelection)) {
        return "Choose the other account of the transfer.";
    }
    return obstacleOfAmount();
}

std::optional<std::string> TransactionEditor::obstacleOfAmount() const {
    if (isTransfer() || !useSplits) {
        if (amount.isNaN()) {
            return "The amount is too large to keep. Enter another.";
        }
        if (isTransfer() && amount.isZero()) {
            return "Enter the amount of the transfer.";
        }
        return std::nullopt;
    }
    if (splits.empty()) {
        return "Add a split line.";
    }
    const Decimal total = splitsTotal();
    if (total.isNaN()) {
        return "The split lines add up to more than can be kept.";
    }
    if (total.isZero()) {
        return "The split lines must add up to an amount.";
    }
    return std::nullopt;
}

Transaction TransactionEditor::transactionToSave() const {
    const auto directed = [](const Decimal& value, bool isIn) { return isIn ? value : -value; };
    Transaction entry = draft;
    entry.accountID = *accountSelection;
    entry.payee = trimmingWhitespaces(draft.payee);
    entry.tags = tagsOf(tagsText);
    entry.splits.clear();
    if (isTransfer()) {
        entry.transferAccountID = transferSelection;
        entry.amount = directed(amount.magnitude(), transferIn);
        return entry;
    }
    const bool isIn = kind_ == Kind::deposit;
    entry.transferAccountID.reset();
    if (!useSplits) {
        entry.amount = directed(amount.magnitude(), isIn);
        return entry;
    }
    entry.categoryID.reset();
    for (const SplitDraft& line : splits) {
        if (!line.amount.isZero()) {
            entry.splits.push_back({.id = line.id,
                                    .categoryID = line.categoryID,
                                    .memo = line.memo,
                                    .amount = directed(line.amount, isIn)});
        }
    }
    return entry;
}

void TransactionEditor::save() {
    if (!accountSelection) {
        return;
    }
    const Transaction entry = transactionToSave();
    environment_.store.mutate(title(), [&](Library& library) {
        Transaction filed = entry;
        makeCategories(library, filed);
        upsert(library, filed);
    });
    if (const Transaction* stored = environment_.store.index().transaction(entry.id)) {
        savedText_ = "Saved " + singleLine(stored->payee) + ", " +
                     currencyText(stored->amount, environment_.currencyCode()) + ".";
        rememberCategories(*stored);
    }
    environment_.appState.transactionSaved.notify(entry.id);
}

void TransactionEditor::startNext() {
    const Calendar& calendar = environment_.clock.calendar();
    const Date now = environment_.clock.now();
    // The time of day goes on, so that entries of one day stay in the order of their entering.
    const int days = calendar.wholeDays(calendar.startOfDay(now), calendar.startOfDay(draft.date));
    plan_ = {};
    startEmpty(accountSelection, calendar.addingDays(now, days));
}

std::optional<ConfirmationRequest> TransactionEditor::deleteConfirmation() const {
    if (isNew()) {
        return std::nullopt;
    }
    ConfirmationRequest confirmation = destructiveConfirmation("Delete Transaction");
    // As it is in the ledger, whatever has been typed since.
    if (const Transaction* entry = environment_.store.index().transaction(draft.id)) {
        confirmation.subject =
            entryName(*entry, {environment_.currencyCode(), environment_.clock.calendar()});
    }
    return confirmation;
}

void TransactionEditor::performDelete() {
    environment_.store.mutate("Delete Transaction", [this](Library& library) {
        deleteTransactions(library, {draft.id});
    });
}

} // namespace oakfen

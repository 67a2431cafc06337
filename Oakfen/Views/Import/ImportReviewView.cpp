#include "Oakfen/Views/Import/ImportReviewView.h"

#include <algorithm>
#include <utility>

#include "OakfenCore/Importers/DuplicateFinder.h"
#include "OakfenCore/Importers/Merging.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

ImportReviewView::ImportReviewView(AppEnvironment& environment,
                                   std::shared_ptr<const ImportSession> session)
    : Screen(environment), session_(std::move(session)) {
    if (environment.store.index().account(session_->accountID) != nullptr) {
        accountID_ = session_->accountID;
    }
    for (const ImportedTransaction& item : session_->items) {
        included_.insert(item.id);
    }
}

void ImportReviewView::setAccountID(std::optional<UUID> accountID) {
    accountID_ = accountID;
    stateChanged();
}

void ImportReviewView::setIncluded(const std::vector<UUID>& ids, bool isIncluded) {
    for (const UUID& id : ids) {
        if (isIncluded) {
            included_.insert(id);
        } else {
            included_.erase(id);
        }
    }
    stateChanged();
}

std::string ImportReviewView::heading(const ImportSession& session) {
    return "Import " + legible(session.fileName);
}

void ImportReviewView::importLines() {
    if (!canImport()) {
        return;
    }
    std::vector<ImportedTransaction> chosen;
    std::ranges::copy_if(items(), std::back_inserter(chosen),
                         [this](const auto& item) { return included_.contains(item.id); });
    stopFollowingLibrary();
    environment_.store.mutate("Import Transactions", [&](Library& library) {
        importTransactions(library, chosen, *accountID_, environment_.clock.now(),
                           environment_.clock.calendar());
    });
}

ImportReviewContent ImportReviewView::derive(const ImportReviewContent* earlier) const {
    const Duplicates& found = duplicates();
    std::vector<ImportReviewRow> rows;
    rows.reserve(items().size());
    for (std::size_t line = 0; line < items().size(); ++line) {
        const ImportedTransaction& item = items()[line];
        rows.push_back({.id = item.id, .item = &item, .isIncluded = included_.contains(item.id)});
        if (const Transaction* match = found.matches[line]) {
            rows.back().duplicate = {
                .date = match->date, .payee = match->payee, .amount = match->amount};
        }
    }
    const auto known =
        static_cast<std::ptrdiff_t>(items().size()) - std::ranges::count(found.matches, nullptr);
    // The rows point into both.
    auto owner = std::make_shared<
        const std::pair<std::shared_ptr<const ImportSession>, std::shared_ptr<const LibraryIndex>>>(
        session_, found.index);
    return {.summary = std::to_string(items().size()) + " transactions found · " +
                       std::to_string(known) + " already in this account",
            .canImport = canImport(),
            .table = keepingEqual(
                earlier != nullptr ? earlier->table : nullptr,
                std::make_shared<const Table<ImportReviewRow>>(
                    importReviewColumns(), std::move(rows), std::move(owner), cellContext()))};
}

const ImportReviewView::Duplicates& ImportReviewView::duplicates() const {
    auto index = environment_.store.sharedIndex();
    if (index == duplicates_.index && accountID_ == duplicates_.accountID) {
        return duplicates_;
    }
    const auto existing =
        accountID_ ? index->transactions(*accountID_) : std::span<const Transaction* const>();
    const DuplicateFinder finder(existing, environment_.clock.calendar());
    duplicates_ = {.index = std::move(index), .accountID = accountID_};
    for (const ImportedTransaction& item : items()) {
        duplicates_.matches.push_back(finder.match(item));
    }
    return duplicates_;
}

} // namespace oakfen

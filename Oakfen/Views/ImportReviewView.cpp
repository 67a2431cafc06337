#include "Oakfen/Views/ImportReviewView.h"

#include <algorithm>

#include "Oakfen/Views/Components.h"
#include "OakfenCore/Importers/Merging.h"
#include "OakfenCore/Support/Formatting.h"
#include "OakfenCore/Support/Quotation.h"

namespace oakfen {

ImportReviewView::ImportReviewView(AppEnvironment& environment,
                                   std::shared_ptr<const ImportSession> session)
    : environment_(environment), session_(std::move(session)) {
    if (environment.store.index().account(session_->accountID) != nullptr) {
        accountID_ = session_->accountID;
    }
    for (const ImportedTransaction& item : session_->items) {
        included.insert(item.id);
    }
}

void ImportReviewView::setAccountID(std::optional<UUID> accountID) {
    accountID_ = accountID;
    duplicatesIndex_.reset();
}

std::string ImportReviewView::heading(const ImportSession& session) {
    return "Import " + legible(session.fileName);
}

std::string ImportReviewView::summary() const {
    findDuplicates();
    const auto known = std::ranges::count_if(
        duplicates_, [](const Transaction* match) { return match != nullptr; });
    return std::to_string(items().size()) + " transactions found · " + std::to_string(known) +
           " already in this account";
}

const Transaction* ImportReviewView::duplicate(std::size_t line) const {
    findDuplicates();
    return duplicates_.at(line);
}

std::string ImportReviewView::duplicateDescription(std::size_t line) const {
    const Transaction* match = duplicate(line);
    if (match == nullptr) {
        return {};
    }
    return "Already in this account: " +
           numericDateText(match->date, environment_.clock.calendar()) + ", " +
           (match->payee.empty() ? "no payee" : singleLine(match->payee)) + ", " +
           currencyText(match->amount, environment_.currencyCode());
}

void ImportReviewView::setIncluded(std::size_t line, bool isIncluded) {
    const UUID& id = items().at(line).id;
    if (isIncluded) {
        included.insert(id);
    } else {
        included.erase(id);
    }
}

bool ImportReviewView::isIncluded(std::size_t line) const {
    return included.contains(items().at(line).id);
}

bool ImportReviewView::canImport() const {
    return accountID_ && !included.empty();
}

void ImportReviewView::importLines() {
    if (!canImport()) {
        return;
    }
    std::vector<ImportedTransaction> chosen;
    std::ranges::copy_if(items(), std::back_inserter(chosen),
                         [this](const auto& item) { return included.contains(item.id); });
    environment_.store.mutate("Import Transactions", [&](Library& library) {
        importTransactions(library, chosen, *accountID_, environment_.clock.now(),
                           environment_.clock.calendar());
    });
}

void ImportReviewView::findDuplicates() const {
    auto index = environment_.store.sharedIndex();
    if (index == duplicatesIndex_) {
        return;
    }
    const auto existing =
        accountID_ ? index->transactions(*accountID_) : std::span<const Transaction* const>();
    const Calendar calendar = environment_.clock.calendar();
    const DuplicateFinder finder(existing, calendar);
    duplicates_.clear();
    for (const ImportedTransaction& item : items()) {
        duplicates_.push_back(finder.match(item));
    }
    duplicatesIndex_ = std::move(index);
}

} // namespace oakfen

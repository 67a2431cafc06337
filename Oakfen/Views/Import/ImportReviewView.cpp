#include "Oakfen/Views/Import/ImportReviewView.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "Oakfen/UndoNotice.h"
#include "OakfenCore/Importers/CategoryChooser.h"
#include "OakfenCore/Importers/DuplicateFinder.h"
#include "OakfenCore/Importers/Merging.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

namespace {

/// The sum of the amounts of that sign among the lines that come in.
Decimal total(const std::vector<ImportReviewRow>& rows, bool (Decimal::*hasSign)() const) {
    return sum(rows, [&](const ImportReviewRow& row) {
        return row.comesIn() && (row.item->amount.*hasSign)() ? row.item->amount : Decimal();
    });
}

/// The categories that the lines name and the document doesn't have, each once.
std::vector<std::string_view> unknownCategories(const std::vector<ImportReviewRow>& rows) {
    std::unordered_set<std::string_view> seen;
    std::vector<std::string_view> names;
    for (const ImportReviewRow& row : rows) {
        if (row.comesIn() && row.namesUnknownCategory &&
            seen.insert(*row.item->categoryName).second) {
            names.emplace_back(*row.item->categoryName);
        }
    }
    return names;
}

std::string unknownCategoriesNote(const std::vector<ImportReviewRow>& rows) {
    const std::vector<std::string_view> names = unknownCategories(rows);
    if (names.empty()) {
        return {};
    }
    std::string note = quoted(names[0]);
    if (names.size() == 2) {
        note += " and " + quoted(names[1]);
    } else if (names.size() > 2) {
        note += ", " + quoted(names[1]) + " and " + countText(names.size() - 2) + " more";
    }
    return note +
           (names.size() == 1 ? " isn’t one of your categories" : " aren’t among your categories") +
           ": these lines are filed as their payee was last, or stay uncategorized";
}

void tellOfImport(AppEnvironment& environment, std::size_t added) {
    if (added == 0) {
        environment.appState.showNotice(
            {.text = "Nothing was imported: what is ticked is in the account already"});
        return;
    }
    offerUndo(environment,
              countText(added) + (added == 1 ? " transaction" : " transactions") + " imported");
}

} // namespace

ImportReviewView::ImportReviewView(AppEnvironment& environment,
                                   std::shared_ptr<const ImportSession> session)
    : Screen(environment), session_(std::move(session)) {
    if (environment.store.index().account(session_->accountID) != nullptr) {
        accountID_ = session_->accountID;
    }
    includeAll();
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

void ImportReviewView::tickAll() {
    includeAll();
    stateChanged();
}

void ImportReviewView::tickNone() {
    included_.clear();
    stateChanged();
}

void ImportReviewView::includeAll() {
    for (const ImportedTransaction& item : items()) {
        included_.insert(item.id);
    }
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
    const auto before = environment_.store.sharedIndex();
    std::size_t added = 0;
    environment_.store.mutate("Import Transactions", [&](Library& library) {
        added = importTransactions(library, chosen, *accountID_, environment_.clock.now(),
                                   environment_.clock.calendar());
    });
    // A refused change has an alert of its own.
    if (added == 0 || environment_.store.sharedIndex() != before) {
        tellOfImport(environment_, added);
    }
}

ImportReviewContent ImportReviewView::derive(const ImportReviewContent* earlier) const {
    std::vector<ImportReviewRow> rows = findings().rows;
    for (ImportReviewRow& row : rows) {
        row.isIncluded = included_.contains(row.id);
    }
    const auto known = std::ranges::count_if(
        rows, [](const ImportReviewRow& row) { return row.duplicate.has_value(); });
    ImportReviewContent content{.summary = countText(rows.size()) + " transactions found · " +
                                           countText(static_cast<std::size_t>(known)) +
                                           " already in this account",
                                .canImport = canImport(),
                                .importTitle = importTitle(rows),
                                .moneyIn = total(rows, &Decimal::isPositive),
                                .moneyOut = total(rows, &Decimal::isNegative),
                                .note = unknownCategoriesNote(rows),
                                .hasDuplicates = known > 0,
                                .canTick = included_.size() < rows.size(),
                                .canUntick = !included_.empty()};
    // The rows point into both.
    auto owner = std::make_shared<
        const std::pair<std::shared_ptr<const ImportSession>, std::shared_ptr<const LibraryIndex>>>(
        session_, findings().index);
    content.table =
        keepingEqual(earlier != nullptr ? earlier->table : nullptr,
                     std::make_shared<const Table<ImportReviewRow>>(
                         importReviewColumns(), std::move(rows), std::move(owner), cellContext()));
    return content;
}

std::string ImportReviewView::importTitle(const std::vector<ImportReviewRow>& rows) const {
    const auto coming = std::ranges::count_if(rows, &ImportReviewRow::comesIn);
    return accountID_ && coming > 0 ? "Import " + countText(static_cast<std::size_t>(coming))
                                    : "Import";
}

const ImportReviewView::Findings& ImportReviewView::findings() const {
    auto index = environment_.store.sharedIndex();
    if (index == findings_.index && accountID_ == findings_.accountID) {
        return findings_;
    }
    const auto existing =
        accountID_ ? index->transactions(*accountID_) : std::span<const Transaction* const>();
    const DuplicateFinder duplicates(existing, environment_.clock.calendar());
    CategoryChooser categories(*index);
    findings_ = {.index = index, .accountID = accountID_, .rows = {}};
    findings_.rows.reserve(items().size());
    for (const ImportedTransaction& item : items()) {
        ImportReviewRow row{.id = item.id,
                            .item = &item,
                            .namesUnknownCategory = categories.namesUnknownCategory(item)};
        if (const Transaction* match = duplicates.match(item)) {
            row.duplicate = {.date = match->date, .payee = match->payee, .amount = match->amount};
        }
        const auto categoryID = categories.category(item);
        if (const std::string* path = categoryID ? index->categoryPath(*categoryID) : nullptr) {
            row.category = *path;
        }
        findings_.rows.push_back(row);
    }
    return findings_;
}

} // namespace oakfen

#include "Oakfen/Views/Register/SetCategoryView.h"

#include <algorithm>
#include <utility>

#include "OakfenCore/LibraryOperations/Categories.h"
#include "OakfenCore/LibraryOperations/Transactions.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

/// "1 split", "5,000 splits".
std::string counted(std::size_t count, const std::string& noun) {
    return countText(count) + " " + noun + (count == 1 ? "" : "s");
}

/// The choices in their order; last, beside them, to have none.
std::vector<PickerRow> wholeList(const LibraryIndex& index) {
    std::vector<PickerRow> rows = categoryPickerRows(index);
    std::ranges::rotate(rows, rows.begin() + 1);
    rows.insert(rows.end() - 1, {.title = "No Category", .isHeader = true});
    return rows;
}

} // namespace

SetCategoryView::SetCategoryView(AppEnvironment& environment, std::shared_ptr<const UUIDSet> ids)
    : environment_(environment), ids_(std::move(ids)), counts_(count()) {
    setTypedText({});
}

SetCategoryView::Counts SetCategoryView::count() const {
    Counts counts;
    Decimal total;
    for (const UUID& id : *ids_) {
        const Transaction* entry = environment_.store.index().transaction(id);
        if (entry == nullptr) {
            continue;
        }
        if (entry->transferAccountID) {
            ++counts.transfers;
            continue;
        }
        ++counts.entries;
        counts.splits += entry->isSplit() ? 1 : 0;
        total += entry->amount;
    }
    counts.isIncome = total.isPositive();
    return counts;
}

std::string SetCategoryView::title() const {
    return "Categorize " + counted(counts_.entries, "Transaction");
}

std::string SetCategoryView::subtitle() const {
    std::string text;
    if (counts_.splits > 0) {
        text = counted(counts_.splits, "split") + " will be replaced.";
    }
    if (counts_.transfers > 0) {
        text += text.empty() ? "" : " ";
        text += counted(counts_.transfers, "transfer") +
                (counts_.transfers == 1 ? " stays as it is." : " stay as they are.");
    }
    return text;
}

std::vector<PickerRow> SetCategoryView::allRows() const {
    const LibraryIndex& index = environment_.store.index();
    std::vector<PickerRow> rows;
    for (const UUID& id : environment_.appState.recentCategories()) {
        if (index.category(id) != nullptr) {
            rows.push_back({.title = index.categoryName(id), .id = id});
        }
    }
    if (!rows.empty()) {
        rows.insert(rows.begin(), {.title = "Recent", .isHeader = true});
    }
    std::ranges::move(wholeList(index), std::back_inserter(rows));
    return rows;
}

void SetCategoryView::setTypedText(std::string text) {
    typed_ = std::move(text);
    const bool isFiltered = !trimmingWhitespaces(typed_).empty();
    // What is looked for stands in the whole list, and need not be found twice.
    rows_ = isFiltered ? wholeList(environment_.store.index()) : allRows();
    offer_ = isFiltered ? categoryOffer(environment_.store.library(), typed_) : CategoryOffer{};
    lines_ = pickerLines(rows_, typed_, offer_);
}

std::optional<std::size_t> SetCategoryView::meantRow() const {
    return trimmingWhitespaces(typed_).empty() ? std::nullopt : oakfen::meantRow(rows_, typed_);
}

std::string SetCategoryView::explanation() const {
    return pickerExplanation(PickerSubject::category, typed_, offer_);
}

void SetCategoryView::choose(const PickerLine& line) {
    if (line.kind == PickerLine::Kind::creation) {
        file(std::nullopt, offer_.path);
    } else if (line.kind == PickerLine::Kind::choice) {
        file(rows_[line.row].id, {});
    }
}

void SetCategoryView::file(const std::optional<UUID>& categoryID, const std::string& newPath) {
    std::optional<UUID> filedUnder = categoryID;
    environment_.store.mutate("Set Category", [&](Library& library) {
        if (!newPath.empty()) {
            filedUnder = categoryFor(
                library, newPath, counts_.isIncome ? CategoryKind::income : CategoryKind::expense);
        }
        setCategory(library, filedUnder, *ids_);
    });
    if (filedUnder) {
        environment_.appState.rememberCategory(*filedUnder);
    }
}

} // namespace oakfen

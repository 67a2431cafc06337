#include "OakfenCore/Importers/Merging.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unordered_map>

#include "OakfenCore/Support/Text.h"

namespace oakfen {

namespace {

/// A bank posts an entry up to three days before or after the person entered it.
constexpr int mostDaysApart = 3;

/// No two instants further apart than this are `mostDaysApart` or less: room for the last started
/// day, and for a zone that jumps across the date line.
constexpr double mostSecondsApart = (mostDaysApart + 3) * 86400.0;

bool hasImportID(const ImportedTransaction& item) {
    return item.importID && !item.importID->empty();
}

bool areNear(Date existing, Date item, const Calendar& calendar) {
    return std::abs(existing.secondsSinceReference - item.secondsSinceReference) <=
               mostSecondsApart &&
           std::abs(calendar.wholeDays(existing, item)) <= mostDaysApart;
}

struct AmountAndPayee {
    Decimal amount;
    std::string payee; // folded

    friend bool operator==(const AmountAndPayee&, const AmountAndPayee&) = default;
};

struct AmountAndPayeeHash {
    std::size_t operator()(const AmountAndPayee& key) const noexcept {
        return std::hash<Decimal>()(key.amount) * 31U + std::hash<std::string>()(key.payee);
    }
};

/// The first entry of one instant, by its place among all entries.
struct DatedEntry {
    Date date;
    std::size_t position = 0;

    friend auto operator<=>(const DatedEntry&, const DatedEntry&) = default;
};

/// Ordered by date, and of the entries of one instant only the first: the others match the same
/// lines, and a payee with the same amount thousands of times over would make the search slow.
void arrange(std::vector<DatedEntry>& entries) {
    std::sort(entries.begin(), entries.end());
    const auto sameDate = [](const DatedEntry& a, const DatedEntry& b) { return a.date == b.date; };
    entries.erase(std::unique(entries.begin(), entries.end(), sameDate), entries.end());
}

} // namespace

bool isDuplicate(const ImportedTransaction& item, std::span<const Transaction* const> existing,
                 const Calendar& calendar) {
    const bool checksID = hasImportID(item);
    return std::any_of(existing.begin(), existing.end(), [&](const Transaction* entry) {
        if (checksID && entry->importID == item.importID) {
            return true;
        }
        return entry->amount == item.amount && areNear(entry->date, item.date, calendar) &&
               equalsCaseInsensitively(entry->payee, item.payee);
    });
}

struct DuplicateFinder::Tables {
    std::vector<const Transaction*> entries;
    Calendar calendar;
    std::unordered_map<std::string_view, std::size_t> byImportID; // the first with that id
    std::unordered_map<AmountAndPayee, std::vector<DatedEntry>, AmountAndPayeeHash> byContent;

    /// The place of the first entry with that amount and payee near that date, or the count of all.
    [[nodiscard]] std::size_t firstAlike(const ImportedTransaction& item) const {
        std::size_t first = entries.size();
        const auto found = byContent.find({item.amount, caseFolded(item.payee)});
        if (found == byContent.end()) {
            return first;
        }
        const std::vector<DatedEntry>& alike = found->second;
        const DatedEntry earliest{item.date.adding(-mostSecondsApart), 0};
        const Date latest = item.date.adding(mostSecondsApart);
        for (auto entry = std::lower_bound(alike.begin(), alike.end(), earliest);
             entry != alike.end() && entry->date <= latest; ++entry) {
            if (areNear(entry->date, item.date, calendar)) {
                first = std::min(first, entry->position);
            }
        }
        return first;
    }
};

DuplicateFinder::DuplicateFinder(std::span<const Transaction* const> existing,
                                 const Calendar& calendar) {
    auto tables = std::make_unique<Tables>(
        Tables{.entries = {existing.begin(), existing.end()}, .calendar = calendar});
    for (std::size_t position = 0; position < existing.size(); ++position) {
        const Transaction& entry = *existing[position];
        if (entry.importID && !entry.importID->empty()) {
            tables->byImportID.try_emplace(*entry.importID, position);
        }
        tables->byContent[{entry.amount, caseFolded(entry.payee)}].push_back(
            {entry.date, position});
    }
    for (auto& [key, entries] : tables->byContent) {
        arrange(entries);
    }
    tables_ = std::move(tables);
}

DuplicateFinder::~DuplicateFinder() = default;

const Transaction* DuplicateFinder::match(const ImportedTransaction& item) const {
    std::size_t first = tables_->firstAlike(item);
    if (hasImportID(item)) {
        const auto found = tables_->byImportID.find(*item.importID);
        if (found != tables_->byImportID.end()) {
            first = std::min(first, found->second);
        }
    }
    return first < tables_->entries.size() ? tables_->entries[first] : nullptr;
}

} // namespace oakfen

#include "OakfenCore/Importers/DuplicateFinder.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "OakfenCore/Support/Text/Text.h"

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

/// The date by which the local clock shows that time in UTC. Whole days follow the clock, so they
/// grow along this order and not always along time: an hour of autumn comes twice.
Date onTheClock(Date date, const Calendar& calendar) {
    const double fraction = date.secondsSinceReference - std::floor(date.secondsSinceReference);
    return Calendar::utc().date(calendar.civil(date)).adding(fraction);
}

double distance(Date a, Date b) {
    return std::abs(a.secondsSinceReference - b.secondsSinceReference);
}

bool areNear(Date existing, Date item, const Calendar& calendar) {
    return distance(existing, item) <= mostSecondsApart &&
           std::abs(calendar.wholeDays(existing, item)) <= mostDaysApart;
}

/// Numbers for payees: those that differ by case only share one.
class PayeeNumbers {
public:
    /// The text must outlive the numbers.
    std::size_t add(std::string_view payee) {
        const auto [spelling, isNew] = bySpelling_.try_emplace(payee);
        if (isNew) {
            spelling->second =
                byFoldedText_.try_emplace(caseFolded(payee), byFoldedText_.size()).first->second;
        }
        return spelling->second;
    }

    [[nodiscard]] std::optional<std::size_t> find(std::string_view payee) const {
        if (const auto spelling = bySpelling_.find(payee); spelling != bySpelling_.end()) {
            return spelling->second;
        }
        const auto folded = byFoldedText_.find(caseFolded(payee));
        return folded == byFoldedText_.end() ? std::nullopt : std::optional(folded->second);
    }

private:
    // Folding costs more than all the rest, so each spelling is folded but once.
    std::unordered_map<std::string_view, std::size_t> bySpelling_;
    std::unordered_map<std::string, std::size_t> byFoldedText_;
};

/// What makes an entry like another, and its place among all entries.
struct Trait {
    std::size_t payee = 0;
    Decimal amount;
    Date clock; // see `onTheClock`
    std::size_t position = 0;

    friend auto operator<=>(const Trait&, const Trait&) = default;

    [[nodiscard]] bool hasPayeeAndAmountOf(const Trait& other) const {
        return payee == other.payee && amount == other.amount;
    }
};

/// Puts like entries side by side in the order of the clock; keeps only the first of one time,
/// since the others match the same lines.
void arrange(std::vector<Trait>& traits) {
    std::sort(traits.begin(), traits.end());
    const auto areOne = [](const Trait& a, const Trait& b) {
        return a.hasPayeeAndAmountOf(b) && a.clock == b.clock;
    };
    traits.erase(std::unique(traits.begin(), traits.end(), areOne), traits.end());
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
    std::unordered_map<std::string_view, const Transaction*> byImportID; // the first with that id
    PayeeNumbers payees;
    std::vector<Trait> traits;

    /// The entry nearest in time with that amount and payee, or null when there is none near
    /// enough.
    [[nodiscard]] const Transaction* nearestAlike(const ImportedTransaction& item) const {
        const std::optional<std::size_t> payee = payees.find(item.payee);
        if (!payee) {
            return nullptr;
        }
        const Trait wanted{
            .payee = *payee, .amount = item.amount, .clock = onTheClock(item.date, calendar)};
        const auto later = std::lower_bound(traits.begin(), traits.end(), wanted);
        // Where the nearest of one side is too far away, the others of that side are all the more.
        const Trait* nearest = nullptr;
        const auto consider = [&](const Trait& trait) {
            if (trait.hasPayeeAndAmountOf(wanted) &&
                areNear(entries[trait.position]->date, item.date, calendar) &&
                (nearest == nullptr ||
                 distance(trait.clock, wanted.clock) < distance(nearest->clock, wanted.clock))) {
                nearest = &trait;
            }
        };
        if (later != traits.begin()) {
            consider(*std::prev(later));
        }
        if (later != traits.end()) {
            consider(*later);
        }
        return nearest == nullptr ? nullptr : entries[nearest->position];
    }
};

DuplicateFinder::DuplicateFinder(std::span<const Transaction* const> existing,
                                 const Calendar& calendar) {
    auto tables = std::make_unique<Tables>(
        Tables{.entries = {existing.begin(), existing.end()}, .calendar = calendar});
    tables->traits.reserve(existing.size());
    for (std::size_t position = 0; position < existing.size(); ++position) {
        const Transaction& entry = *existing[position];
        if (entry.importID && !entry.importID->empty()) {
            tables->byImportID.try_emplace(*entry.importID, &entry);
        }
        tables->traits.push_back({tables->payees.add(entry.payee), entry.amount,
                                  onTheClock(entry.date, calendar), position});
    }
    arrange(tables->traits);
    tables_ = std::move(tables);
}

DuplicateFinder::~DuplicateFinder() = default;

const Transaction* DuplicateFinder::match(const ImportedTransaction& item) const {
    if (hasImportID(item)) {
        const auto found = tables_->byImportID.find(*item.importID);
        if (found != tables_->byImportID.end()) {
            return found->second;
        }
    }
    return tables_->nearestAlike(item);
}

} // namespace oakfen

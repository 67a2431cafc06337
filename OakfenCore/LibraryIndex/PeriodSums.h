#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "OakfenCore/LibraryIndex/LibraryIndex.h"

namespace oakfen {

/// The lines of one interval added up in one pass.
///
/// Lines of one category, or of one payee, are added up to one part. But where sums depend on the
/// order of the lines, each line remains a part of its own, in document order: whoever adds parts
/// up then does so in the order in which the lines stand.
class PeriodSums {
public:
    /// Of one category, or of none. An unknown category can have income and spending both, like
    /// none; a known one has only what its kind says.
    struct CategoryPart {
        std::optional<UUID> categoryID = {};
        Decimal income;
        /// Of lines that are not income, as they stand: negative for what was spent.
        Decimal spending;
    };
    /// Of one payee, as the entries spell it.
    struct PayeePart {
        std::string_view payee; // of the index's document
        Decimal spending;
    };

    PeriodSums(const LibraryIndex& index, const DateInterval& interval);

    [[nodiscard]] const std::vector<CategoryPart>& categories() const { return categories_; }
    [[nodiscard]] const std::vector<PayeePart>& payees() const { return payees_; }
    /// All lines of that category itself, as they stand.
    [[nodiscard]] Decimal amount(const UUID& categoryID) const;

private:
    CategoryPart& part(const std::optional<UUID>& categoryID);
    PayeePart& part(std::string_view payee);

    bool isMerged_;
    std::vector<CategoryPart> categories_;
    std::vector<PayeePart> payees_;
    // Where the parts are, if lines are merged.
    std::unordered_map<std::optional<UUID>, std::size_t> positions_;
    std::unordered_map<std::string_view, std::size_t> payeePositions_;
};

/// The sums of the intervals that an index was asked about of late. Any thread may ask; the sums of
/// an interval are made by the one that asks first, and nobody waits for those of another.
class PeriodMemory {
public:
    /// `make()` returns the sums of the interval.
    template <typename Make>
    [[nodiscard]] std::shared_ptr<const PeriodSums> sums(const DateInterval& interval,
                                                         Make&& make) {
        const std::shared_ptr<Period> period = find(interval);
        std::call_once(period->once, [&] { period->sums.emplace(make()); });
        return {period, &*period->sums};
    }

private:
    /// More than a screen asks about at once; few enough that somebody who looks at one month after
    /// the other doesn't fill the memory.
    static constexpr std::size_t mostPeriods = 24;

    struct Period {
        explicit Period(const DateInterval& span) : interval(span) {}

        const DateInterval interval;
        std::once_flag once;
        std::optional<PeriodSums> sums;
    };

    std::shared_ptr<Period> find(const DateInterval& interval);

    std::mutex mutex_;
    std::deque<std::shared_ptr<Period>> periods_; // the newest last
};

} // namespace oakfen

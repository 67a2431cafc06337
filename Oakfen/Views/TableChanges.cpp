#include "Oakfen/Views/TableChanges.h"

#include <algorithm>

namespace oakfen {

namespace {

/// More of them cost a table more than looking at all of its rows afresh.
constexpr std::size_t mostRuns = 8;
/// To find the runs among more rows takes longer than a person should wait for each typed letter.
constexpr std::size_t mostCompared = 4000;

/// Finds the runs in which two tables differ.
class Comparison {
public:
    Comparison(const TableContent& earlier, const TableContent& later)
        : earlier_(earlier), later_(later), earlierEnd_(earlier.rowCount()),
          laterEnd_(later.rowCount()) {}

    TableChanges changes() {
        while (start_ < std::min(earlierEnd_, laterEnd_) &&
               earlier_.id(start_) == later_.id(start_)) {
            ++start_;
        }
        while (earlierEnd_ > start_ && laterEnd_ > start_ &&
               earlier_.id(earlierEnd_ - 1) == later_.id(laterEnd_ - 1)) {
            --earlierEnd_;
            --laterEnd_;
        }
        TableChanges changes;
        changes.isRearranged = !findRuns(changes.runs);
        if (changes.isRearranged) {
            changes.runs.clear();
        } else {
            changes.changed = findChanged(changes.runs);
        }
        return changes;
    }

private:
    /// Whether the runs between the common start and end are few, and nothing changed its order.
    bool findRuns(std::vector<TableChanges::Run>& runs) const {
        const std::size_t removed = earlierEnd_ - start_;
        const std::size_t inserted = laterEnd_ - start_;
        if (removed == 0 || inserted == 0) {
            if (removed + inserted > 0) {
                runs.push_back({start_, removed, start_, inserted});
            }
            return true;
        }
        if (removed + inserted > mostCompared) {
            return false;
        }
        const UUIDSet before = ids(earlier_, earlierEnd_);
        const UUIDSet after = ids(later_, laterEnd_);
        TableChanges::Run place{.from = start_, .to = start_};
        while (place.from < earlierEnd_ || place.to < laterEnd_) {
            TableChanges::Run run = place;
            while (place.from < earlierEnd_ && !after.contains(earlier_.id(place.from))) {
                ++place.from;
            }
            while (place.to < laterEnd_ && !before.contains(later_.id(place.to))) {
                ++place.to;
            }
            run.removed = place.from - run.from;
            run.inserted = place.to - run.to;
            if (run.removed > 0 || run.inserted > 0) {
                if (runs.size() == mostRuns) {
                    return false;
                }
                runs.push_back(run);
            }
            const bool isEarlierDone = place.from == earlierEnd_;
            const bool isLaterDone = place.to == laterEnd_;
            if (isEarlierDone != isLaterDone ||
                (!isEarlierDone && earlier_.id(place.from) != later_.id(place.to))) {
                return false;
            }
            if (!isEarlierDone) {
                ++place.from;
                ++place.to;
            }
        }
        return true;
    }

    /// The rows of a table between the common start and end.
    [[nodiscard]] UUIDSet ids(const TableContent& table, std::size_t end) const {
        UUIDSet result;
        result.reserve(end - start_);
        for (std::size_t row = start_; row < end; ++row) {
            result.insert(table.id(row));
        }
        return result;
    }

    [[nodiscard]] std::optional<TableChanges::Span>
    findChanged(const std::vector<TableChanges::Run>& runs) const {
        if (later_.rowCount() == 0) {
            return std::nullopt;
        }
        const TableChanges::Span all{.first = 0, .last = later_.rowCount() - 1};
        if (!later_.isAlike(earlier_)) {
            return all;
        }
        std::optional<TableChanges::Span> changed;
        const auto compare = [&](std::size_t from, std::size_t to, std::size_t count) {
            std::size_t first = 0;
            while (first < count && later_.isSameRow(to + first, earlier_, from + first)) {
                ++first;
            }
            if (first == count) {
                return;
            }
            std::size_t last = count - 1;
            while (last > first && later_.isSameRow(to + last, earlier_, from + last)) {
                --last;
            }
            changed = {.first = changed ? changed->first : to + first, .last = to + last};
        };
        TableChanges::Run kept;
        for (const TableChanges::Run& run : runs) {
            compare(kept.from, kept.to, run.from - kept.from);
            kept = {.from = run.from + run.removed, .to = run.to + run.inserted};
        }
        compare(kept.from, kept.to, later_.rowCount() - kept.to);
        return changed;
    }

    const TableContent& earlier_;
    const TableContent& later_;
    /// The rows from here to the ends are those that differ.
    std::size_t start_ = 0;
    std::size_t earlierEnd_;
    std::size_t laterEnd_;
};

} // namespace

TableChanges changesBetween(const TableContent& earlier, const TableContent& later) {
    return Comparison(earlier, later).changes();
}

} // namespace oakfen

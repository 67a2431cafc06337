#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Oakfen/Views/TableColumns.h"
#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

/// Sorts the rows of a table by the values of a column: texts as people order them, the rest by
/// size. Rows with equal values stay as they came, in both directions.
template <typename Row>
class TableSorter {
public:
    using Rows = std::vector<const Row*>;

    /// A column that is not sortable leaves the order as it is.
    void sort(Rows& rows, const Column<Row>& column, bool ascending);

private:
    template <typename Key>
    struct KeyedRow {
        Key key;
        const Row* row;
    };

    template <typename Key>
    static void sortKeyed(std::vector<KeyedRow<Key>>& keyed, Rows& rows, bool ascending);
    template <typename KeyOf>
    static void sortByKey(Rows& rows, KeyOf&& keyOf, bool ascending);
    template <typename AmountOf>
    static void sortByAmount(Rows& rows, AmountOf&& amountOf, bool ascending);
    template <typename TextOf, typename KeyOf, typename Compare>
    static void sortByText(Rows& rows, TextOf&& textOf, KeyOf&& keyOf, Compare&& compare,
                           bool ascending);

    std::string_view keptKey(std::string_view text) {
        const auto [key, isNew] = sortKeys_.try_emplace(std::string(text));
        if (isNew) {
            key->second = localizedSortKey(text);
        }
        return key->second;
    }

    /// Kept from one sort to the next, as making them is what takes long.
    std::unordered_map<std::string, std::string> sortKeys_;
};

/// The amount as a count of 10^`exponent`; nothing where that is no everyday number.
[[nodiscard]] inline std::optional<std::int64_t> counted(const Decimal& amount, int exponent) {
    Int128 count = amount.coefficient();
    const auto isShort = [&] { return count == static_cast<std::int64_t>(count); };
    for (int each = amount.exponent(); each > exponent && isShort(); --each) {
        count *= 10;
    }
    return isShort() ? std::optional(static_cast<std::int64_t>(count)) : std::nullopt;
}

template <typename Row>
void TableSorter<Row>::sort(Rows& rows, const Column<Row>& column, bool ascending) {
    if (!column.head.isSortable) {
        return;
    }
    using Each = Column<Row>;
    std::visit(
        Overloaded{
            [&](const typename Each::Text& text) {
                if (text.countsDigits) {
                    sortByText(rows, text.of, std::identity(), localizedStandardCompare, ascending);
                    return;
                }
                const auto compare = [](std::string_view a, std::string_view b) {
                    return a.compare(b);
                };
                sortByText(
                    rows, text.of, [this](std::string_view each) { return keptKey(each); }, compare,
                    ascending);
            },
            [](const typename Each::Composed&) {},
            [&](const typename Each::Money& money) { sortByAmount(rows, money.of, ascending); },
            [&](const typename Each::Figures& figures) {
                sortByAmount(rows, figures.of, ascending);
            },
            [&](const auto& value) { sortByKey(rows, value.of, ascending); }},
        column.value);
}

/// Puts the rows in the stable order of their keys. They mostly come in order already, or in its
/// reverse, and then the runs of equal keys are all that has to be moved.
template <typename Row>
template <typename Key>
void TableSorter<Row>::sortKeyed(std::vector<KeyedRow<Key>>& keyed, Rows& rows, bool ascending) {
    using Keyed = KeyedRow<Key>;
    const auto before = [](const Keyed& a, const Keyed& b) { return a.key < b.key; };
    const auto after = [](const Keyed& a, const Keyed& b) { return b.key < a.key; };
    if (!std::ranges::is_sorted(keyed, before)) {
        ascending ? std::ranges::stable_sort(keyed, before)
                  : std::ranges::stable_sort(keyed, after);
    } else if (!ascending) {
        std::ranges::reverse(keyed);
        for (auto run = keyed.begin(); run != keyed.end();) {
            const auto end = std::find_if(run, keyed.end(),
                                          [&](const Keyed& each) { return after(*run, each); });
            std::reverse(run, end);
            run = end;
        }
    }
    std::ranges::transform(keyed, rows.begin(), &Keyed::row);
}

/// Sorts by a key that is worked out once for each row.
template <typename Row>
template <typename KeyOf>
void TableSorter<Row>::sortByKey(Rows& rows, KeyOf&& keyOf, bool ascending) {
    std::vector<KeyedRow<std::decay_t<std::invoke_result_t<KeyOf, const Row&>>>> keyed;
    keyed.reserve(rows.size());
    for (const Row* row : rows) {
        keyed.push_back({keyOf(*row), row});
    }
    sortKeyed(keyed, rows, ascending);
}

/// Sorts by an amount, as plain integers where they all allow it: these compare much faster.
template <typename Row>
template <typename AmountOf>
void TableSorter<Row>::sortByAmount(Rows& rows, AmountOf&& amountOf, bool ascending) {
    int exponent = 0;
    for (const Row* row : rows) {
        exponent = std::min(exponent, amountOf(*row).exponent());
    }
    std::vector<KeyedRow<std::int64_t>> keyed;
    keyed.reserve(rows.size());
    for (const Row* row : rows) {
        const auto count = counted(amountOf(*row), exponent);
        if (!count) {
            return sortByKey(rows, amountOf, ascending);
        }
        keyed.push_back({*count, row});
    }
    sortKeyed(keyed, rows, ascending);
}

/// Sorts by the place of each row's text among the distinct texts, so that texts are compared once
/// for each distinct one and rows by a number. `keyOf` returns what `compare` compares for a text.
template <typename Row>
template <typename TextOf, typename KeyOf, typename Compare>
void TableSorter<Row>::sortByText(Rows& rows, TextOf&& textOf, KeyOf&& keyOf, Compare&& compare,
                                  bool ascending) {
    struct Distinct {
        std::string_view key;
        std::size_t* rank;
    };
    std::unordered_map<std::string_view, std::size_t> ranks;
    std::vector<Distinct> distinct;
    std::vector<const std::size_t*> rankOfRow;
    rankOfRow.reserve(rows.size());
    for (const Row* row : rows) {
        const auto [place, isNew] = ranks.try_emplace(textOf(*row), 0);
        if (isNew) {
            distinct.push_back({keyOf(place->first), &place->second});
        }
        rankOfRow.push_back(&place->second);
    }
    std::ranges::sort(
        distinct, [&](const Distinct& a, const Distinct& b) { return compare(a.key, b.key) < 0; });
    std::size_t rank = 0;
    for (std::size_t index = 0; index < distinct.size(); ++index) {
        if (index > 0 && compare(distinct[index - 1].key, distinct[index].key) != 0) {
            ++rank;
        }
        *distinct[index].rank = rank;
    }
    std::vector<KeyedRow<std::size_t>> ranked;
    ranked.reserve(rows.size());
    for (std::size_t index = 0; index < rows.size(); ++index) {
        ranked.push_back({*rankOfRow[index], rows[index]});
    }
    sortKeyed(ranked, rows, ascending);
}

} // namespace oakfen

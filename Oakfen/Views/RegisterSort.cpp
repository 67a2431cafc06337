#include "Oakfen/Views/RegisterSort.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "OakfenCore/Support/Text.h"

namespace oakfen {

namespace {

using Rows = std::vector<const RegisterRow*>;

template <typename Key>
struct KeyedRow {
    Key key;
    const RegisterRow* row;
};

/// Puts the rows in the stable order of their keys. They mostly come in order already, or in its
/// reverse, and then the runs of equal keys are all that has to be moved.
template <typename Key>
void sortKeyed(std::vector<KeyedRow<Key>>& keyed, Rows& rows, bool ascending) {
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
template <typename KeyOf>
void sortByKey(Rows& rows, KeyOf&& keyOf, bool ascending) {
    std::vector<KeyedRow<std::decay_t<std::invoke_result_t<KeyOf, const RegisterRow&>>>> keyed;
    keyed.reserve(rows.size());
    for (const RegisterRow* row : rows) {
        keyed.push_back({keyOf(*row), row});
    }
    sortKeyed(keyed, rows, ascending);
}

/// The amount as a count of 10^`exponent`; nothing where that is no everyday number.
std::optional<std::int64_t> counted(const Decimal& amount, int exponent) {
    Int128 count = amount.coefficient();
    const auto isShort = [&] { return count == static_cast<std::int64_t>(count); };
    for (int each = amount.exponent(); each > exponent && isShort(); --each) {
        count *= 10;
    }
    return isShort() ? std::optional(static_cast<std::int64_t>(count)) : std::nullopt;
}

/// Sorts by an amount, as plain integers where they all allow it: these compare much faster.
template <typename AmountOf>
void sortByAmount(Rows& rows, AmountOf&& amountOf, bool ascending) {
    int exponent = 0;
    for (const RegisterRow* row : rows) {
        exponent = std::min(exponent, amountOf(*row).exponent());
    }
    std::vector<KeyedRow<std::int64_t>> keyed;
    keyed.reserve(rows.size());
    for (const RegisterRow* row : rows) {
        const auto count = counted(amountOf(*row), exponent);
        if (!count) {
            return sortByKey(rows, amountOf, ascending);
        }
        keyed.push_back({*count, row});
    }
    sortKeyed(keyed, rows, ascending);
}

/// Sorts by the place of each row's text among the distinct texts, so that texts are compared once
/// for each distinct one and rows by a number. `keyOf` gives what `compare` compares for a text.
template <typename KeyOf, typename Compare>
void sortByText(Rows& rows, std::string RegisterRow::*text, KeyOf&& keyOf, Compare&& compare,
                bool ascending) {
    struct Distinct {
        std::string_view key;
        std::size_t* rank;
    };
    std::unordered_map<std::string_view, std::size_t> ranks;
    std::vector<Distinct> distinct;
    std::vector<const std::size_t*> rankOfRow;
    rankOfRow.reserve(rows.size());
    for (const RegisterRow* row : rows) {
        const auto [place, isNew] = ranks.try_emplace(row->*text, 0);
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

} // namespace

void RegisterSorter::sort(std::vector<const RegisterRow*>& rows, const RegisterSort& order) {
    const auto byText = [&](std::string RegisterRow::*text) {
        const auto keptKey = [this](std::string_view each) -> std::string_view {
            const auto [key, isNew] = sortKeys_.try_emplace(std::string(each));
            if (isNew) {
                key->second = localizedSortKey(each);
            }
            return key->second;
        };
        const auto compare = [](std::string_view a, std::string_view b) { return a.compare(b); };
        sortByText(rows, text, keptKey, compare, order.ascending);
    };
    switch (order.column) {
    case RegisterColumn::cleared:
        return sortByKey(rows, std::mem_fn(&RegisterRow::clearedSort), order.ascending);
    case RegisterColumn::date:
        return sortByKey(rows, std::mem_fn(&RegisterRow::date), order.ascending);
    case RegisterColumn::number:
        return sortByText(rows, &RegisterRow::checkNumber, std::identity(),
                          localizedStandardCompare, order.ascending);
    case RegisterColumn::payee:
        return byText(&RegisterRow::payee);
    case RegisterColumn::category:
        return byText(&RegisterRow::categoryName);
    case RegisterColumn::payment:
        return sortByAmount(rows, std::mem_fn(&RegisterRow::payment), order.ascending);
    case RegisterColumn::deposit:
        return sortByAmount(rows, std::mem_fn(&RegisterRow::deposit), order.ascending);
    case RegisterColumn::balance:
        return sortByAmount(rows, std::mem_fn(&RegisterRow::balance), order.ascending);
    case RegisterColumn::tags:
        return;
    }
}

} // namespace oakfen

#include "Oakfen/Views/RegisterSort.h"

#include <algorithm>
#include <functional>
#include <string_view>

#include "OakfenCore/Support/Text.h"

namespace oakfen {

namespace {

/// Sorts stably by a key in either direction. Rows mostly come in order already, or in its
/// reverse, and then the runs of equal keys are all that has to be moved.
template <typename Element, typename Key>
void sortByKey(std::vector<Element>& elements, Key&& key, bool ascending) {
    const auto before = [&key](const Element& a, const Element& b) { return key(a) < key(b); };
    const auto after = [&key](const Element& a, const Element& b) { return key(b) < key(a); };
    if (!std::ranges::is_sorted(elements, before)) {
        ascending ? std::ranges::stable_sort(elements, before)
                  : std::ranges::stable_sort(elements, after);
        return;
    }
    if (ascending) {
        return;
    }
    std::ranges::reverse(elements);
    for (auto run = elements.begin(); run != elements.end();) {
        const auto end = std::find_if(run, elements.end(),
                                      [&](const Element& each) { return after(*run, each); });
        std::reverse(run, end);
        run = end;
    }
}

struct RankedRow {
    std::size_t rank;
    const RegisterRow* row;
};

/// Sorts by the place of each row's text among the distinct texts, so that texts are compared once
/// for each distinct one and rows by a number. `keyOf` gives what `compare` compares for a text.
template <typename KeyOf, typename Compare>
void sortByText(std::vector<const RegisterRow*>& rows, std::string RegisterRow::*text,
                KeyOf&& keyOf, Compare&& compare, bool ascending) {
    struct Distinct {
        std::string_view key;
        std::size_t* rank;
    };
    std::unordered_map<std::string_view, std::size_t> ranks;
    std::vector<Distinct> distinct;
    for (const RegisterRow* row : rows) {
        const auto [place, isNew] = ranks.try_emplace(row->*text, 0);
        if (isNew) {
            distinct.push_back({keyOf(place->first), &place->second});
        }
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

    std::vector<RankedRow> ranked;
    ranked.reserve(rows.size());
    for (const RegisterRow* row : rows) {
        ranked.push_back({ranks[row->*text], row});
    }
    sortByKey(
        ranked, [](const RankedRow& each) { return each.rank; }, ascending);
    std::ranges::transform(ranked, rows.begin(), &RankedRow::row);
}

} // namespace

void RegisterSorter::sort(std::vector<const RegisterRow*>& rows, const RegisterSort& order) {
    const auto byKey = [&](auto key) { sortByKey(rows, key, order.ascending); };
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
        return byKey([](const RegisterRow* row) { return row->clearedSort(); });
    case RegisterColumn::date:
        return byKey([](const RegisterRow* row) { return row->date; });
    case RegisterColumn::number:
        return sortByText(rows, &RegisterRow::checkNumber, std::identity(),
                          localizedStandardCompare, order.ascending);
    case RegisterColumn::payee:
        return byText(&RegisterRow::payee);
    case RegisterColumn::category:
        return byText(&RegisterRow::categoryName);
    case RegisterColumn::payment:
        return byKey([](const RegisterRow* row) { return row->payment(); });
    case RegisterColumn::deposit:
        return byKey([](const RegisterRow* row) { return row->deposit(); });
    case RegisterColumn::balance:
        return byKey([](const RegisterRow* row) -> const Decimal& { return row->balance; });
    case RegisterColumn::tags:
        return;
    }
}

} // namespace oakfen

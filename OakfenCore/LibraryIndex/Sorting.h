#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

/// Sorts stably by merging the runs that are in order already: one pass over a sorted sequence, one
/// short merge where a single element is out of place.
template <typename Element, typename Less>
void sortNoticingOrder(std::vector<Element>& elements, Less&& less) {
    std::vector<std::size_t> ends;
    for (auto run = elements.begin(); run != elements.end();) {
        run = std::is_sorted_until(run, elements.end(), less);
        ends.push_back(static_cast<std::size_t>(run - elements.begin()));
    }
    const auto at = [&elements](std::size_t index) {
        return elements.begin() + static_cast<std::ptrdiff_t>(index);
    };
    while (ends.size() > 1) {
        std::vector<std::size_t> merged;
        std::size_t start = 0;
        for (std::size_t run = 0; run + 1 < ends.size(); run += 2) {
            const auto middle = at(ends[run]);
            const auto end = at(ends[run + 1]);
            // What is in place at both ends needs no merging.
            const auto first = std::upper_bound(at(start), middle, *middle, less);
            const auto last = std::lower_bound(middle, end, *std::prev(middle), less);
            std::inplace_merge(first, middle, last, less);
            start = ends[run + 1];
            merged.push_back(start);
        }
        if (ends.size() % 2 == 1) {
            merged.push_back(ends.back());
        }
        ends = std::move(merged);
    }
}

/// Sorts by a text of each element, in the locale's collation order. Texts that collate as equal
/// stand in plain order, elements of one text as they did before.
template <typename Element, typename TextOf>
void sortForPeople(std::vector<Element>& elements, TextOf&& textOf) {
    std::vector<std::pair<std::string, Element>> keyed;
    keyed.reserve(elements.size());
    for (Element& element : elements) {
        std::string key = localizedSortKey(std::invoke(textOf, std::as_const(element)));
        keyed.emplace_back(std::move(key), std::move(element));
    }
    std::stable_sort(keyed.begin(), keyed.end(), [&textOf](const auto& a, const auto& b) {
        if (a.first != b.first) {
            return a.first < b.first;
        }
        return std::invoke(textOf, a.second) < std::invoke(textOf, b.second);
    });
    for (std::size_t index = 0; index < keyed.size(); ++index) {
        elements[index] = std::move(keyed[index].second);
    }
}

/// Sorts records likewise, and those of one text by id: rows never jump when the document's order
/// changes.
template <typename Record, typename TextOf>
void sortRecordsForPeople(std::vector<const Record*>& records, TextOf&& textOf) {
    std::stable_sort(records.begin(), records.end(),
                     [](const Record* a, const Record* b) { return a->id < b->id; });
    sortForPeople(records, textOf);
}

} // namespace oakfen

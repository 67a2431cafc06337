#pragma once

#include <algorithm>
#include <functional>
#include <utility>

#include "OakfenCore/Models/Enumerations.h"

namespace oakfen {

/// A value of a draft, as a field reads and writes it: a member, or what the draft makes of one.
template <typename Value>
class Bound {
public:
    /// A member that lives as long as the field does. Implicit, so that a form names just that.
    Bound(Value& member)
        : read([&member] { return member; }),
          write([&member](const Value& value) { member = value; }) {}
    Bound(std::function<Value()> reader, std::function<void(const Value&)> writer)
        : read(std::move(reader)), write(std::move(writer)) {}

    std::function<Value()> read;
    std::function<void(const Value&)> write;
};

/// The case as its number, which an item of a choice carries.
template <typename Enumeration>
[[nodiscard]] Bound<int> asNumber(const Bound<Enumeration>& value) {
    return {[read = value.read] { return static_cast<int>(read()); },
            [write = value.write](const int& number) { write(static_cast<Enumeration>(number)); }};
}

/// The case as its place among all, which is the place of its word in a row of words.
template <typename Enumeration>
[[nodiscard]] Bound<int> asPlace(const Bound<Enumeration>& value) {
    constexpr auto cases = allCases<Enumeration>;
    return {[read = value.read, cases] {
                return static_cast<int>(std::ranges::find(cases, read()) - cases.begin());
            },
            [write = value.write, cases](const int& place) {
                write(cases[static_cast<std::size_t>(place)]);
            }};
}

} // namespace oakfen

#include "OakfenCore/Models/NumberCheck.h"

#include <algorithm>
#include <concepts>
#include <type_traits>

#include "OakfenCore/Models/RecordFields.h"
#include "OakfenCore/Support/Values/UnsharedChunks.h"

namespace oakfen {

namespace {

template <typename Value>
concept IsNoAmount =
    std::is_enum_v<Value> || std::same_as<Value, bool> || std::same_as<Value, long long> ||
    std::same_as<Value, std::string> || std::same_as<Value, UUID> || std::same_as<Value, Date>;

/// Walks through the fields of records. There is a function for each type that a field has and none
/// for the rest, so that a field of a new type has to be thought of here before it compiles.
struct NaNSearch {
    template <IsNoAmount Value>
    static bool finds(const Value& /*value*/) {
        return false;
    }
    static bool finds(const Decimal& number) { return number.isNaN(); }

    template <typename Value>
    static bool finds(const std::optional<Value>& value) {
        return value && finds(*value);
    }
    template <typename Element>
    static bool finds(const std::vector<Element>& elements) {
        return std::ranges::any_of(elements, [](const Element& each) { return finds(each); });
    }
    static bool finds(const std::map<UUID, Decimal>& budget) {
        return std::ranges::any_of(budget, [](const auto& each) { return finds(each.second); });
    }
    template <RecordType Record>
    static bool finds(const Record& record) {
        return std::apply(
            [&](const auto&... fields) { return (finds(record.*fields.member) || ...); },
            fieldsOf<Record>);
    }

    // What an edit has made of a part of the document.
    template <typename Value>
    static bool findsNew(const Value& /*before*/, const Value& after) {
        return finds(after);
    }
    template <typename Record>
    static bool findsNew(const SharedArray<Record>& before, const SharedArray<Record>& after) {
        bool found = false;
        forEachUnsharedChunk(after, before,
                             [&](const auto& records) { found = found || finds(records); });
        return found;
    }
};

} // namespace

bool addsNaN(const Library& before, const Library& after) {
    return std::apply(
        [&](const auto&... fields) {
            return (NaNSearch::findsNew(before.*fields.member, after.*fields.member) || ...);
        },
        fieldsOf<Library>);
}

} // namespace oakfen

#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "OakfenCore/Models/Enumerations.h"
#include "OakfenCore/Models/JSONParsing.h"
#include "OakfenCore/Support/Number/Decimal.h"
#include "OakfenCore/Support/Text/Quotation.h"
#include "OakfenCore/Support/Time/Date.h"
#include "OakfenCore/Support/Values/UUID.h"

/// How values of the document that are neither lists nor objects are read: a JSON value of the
/// right kind is assigned, and any other refused with a `JSONError`.
namespace oakfen {

/// Throws with that reason if the value is of another kind.
void requireKind(const JSONValue& json, JSONValue::Kind kind, const char* reason);
[[nodiscard]] std::string_view textOf(const JSONValue& json);

void assign(const JSONValue& json, std::string& text);
void assign(const JSONValue& json, bool& value);
void assign(const JSONValue& json, Decimal& number);
void assign(const JSONValue& json, long long& number);
void assign(const JSONValue& json, UUID& id);
void assign(const JSONValue& json, Date& date);

template <typename Enumeration>
requires std::is_enum_v<Enumeration>
void assign(const JSONValue& json, Enumeration& value) {
    const std::string_view text = textOf(json);
    const auto known = fromRawValue<Enumeration>(text);
    if (!known) {
        throw JSONError(quoted(text) + " is unknown");
    }
    value = *known;
}

} // namespace oakfen

#include "OakfenCore/Models/JSONScalars.h"

#include <limits>

#include "OakfenCore/Models/DateText.h"

namespace oakfen {

void requireKind(const JSONValue& json, JSONValue::Kind kind, const char* reason) {
    if (json.kind != kind) {
        throw JSONError(reason);
    }
}

std::string_view textOf(const JSONValue& json) {
    requireKind(json, JSONValue::Kind::text, "not a text");
    return json.text;
}

void assign(const JSONValue& json, std::string& text) {
    text = textOf(json);
}

void assign(const JSONValue& json, bool& value) {
    requireKind(json, JSONValue::Kind::boolean, "not true or false");
    value = json.boolean;
}

void assign(const JSONValue& json, Decimal& number) {
    requireKind(json, JSONValue::Kind::number, "not a number");
    const auto value = Decimal::parseJSONNumber(json.text);
    if (!value) {
        throw JSONError("a number out of range");
    }
    number = *value;
}

void assign(const JSONValue& json, long long& number) {
    Decimal value;
    assign(json, value);
    if (value != value.rounded(0, RoundingMode::plain)) {
        throw JSONError("not a whole number");
    }
    if (value < Decimal(std::numeric_limits<long long>::min()) ||
        value > Decimal(std::numeric_limits<long long>::max())) {
        throw JSONError("a number out of range");
    }
    Int128 whole = value.coefficient();
    for (int exponent = value.exponent(); exponent > 0; --exponent) {
        whole *= 10;
    }
    number = static_cast<long long>(whole);
}

void assign(const JSONValue& json, UUID& id) {
    const auto value = UUID::parse(textOf(json));
    if (!value) {
        throw JSONError("not an identifier");
    }
    id = *value;
}

void assign(const JSONValue& json, Date& date) {
    const auto value = parseDateText(textOf(json));
    if (!value) {
        throw JSONError("not a date");
    }
    date = *value;
}

} // namespace oakfen

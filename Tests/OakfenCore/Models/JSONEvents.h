#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "OakfenCore/Models/JSONParsing.h"

/// For tests of what is written and read as JSON.
namespace oakfen::testing {

/// Keeps what it is told, one line for each call, such as "number 12.50".
class JSONEvents : public JSONListener {
public:
    std::vector<std::string> lines;

    void key(std::string_view key) override { lines.push_back("key " + std::string(key)); }
    void value(const JSONValue& value) override {
        switch (value.kind) {
        case JSONValue::Kind::null:
            lines.emplace_back("null");
            break;
        case JSONValue::Kind::boolean:
            lines.emplace_back(value.boolean ? "true" : "false");
            break;
        case JSONValue::Kind::number:
            lines.push_back("number " + std::string(value.text));
            break;
        case JSONValue::Kind::text:
            lines.push_back("text " + std::string(value.text));
            break;
        case JSONValue::Kind::list:
            lines.emplace_back("list");
            break;
        case JSONValue::Kind::object:
            lines.emplace_back("object");
            break;
        }
    }
    void end() override { lines.emplace_back("end"); }
};

inline std::vector<std::string> eventsIn(std::string_view json) {
    JSONEvents events;
    parseJSON(json, events);
    return events.lines;
}

/// The text that is all of the JSON.
inline std::string textIn(std::string_view json) {
    return eventsIn(json).at(0).substr(std::string_view("text ").size());
}

} // namespace oakfen::testing

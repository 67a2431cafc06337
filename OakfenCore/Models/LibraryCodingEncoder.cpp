#include <concepts>
#include <type_traits>

#include "OakfenCore/Models/DateText.h"
#include "OakfenCore/Models/JSONText.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Models/RecordFields.h"

namespace oakfen {

namespace {

/// Appends values to a text as JSON. Only optional fields of records may be absent, and are then
/// left out.
class LibraryEncoder {
public:
    explicit LibraryEncoder(std::string& json) : json_(json) {}

    template <RecordType Record>
    void write(const Record& record) {
        char separator = '{';
        std::apply(
            [&](const auto&... fields) {
                (writeField(fields.key, record.*fields.member, separator), ...);
            },
            fieldsOf<Record>);
        json_ += '}';
    }

    template <typename Element>
    void write(const SharedArray<Element>& elements) {
        writeList(elements);
    }
    template <typename Element>
    void write(const std::vector<Element>& elements) {
        writeList(elements);
    }

    /// A map whose keys are no text is a list in which keys and values alternate.
    void write(const std::map<UUID, Decimal>& budget) {
        json_ += '[';
        for (const auto& [categoryID, amount] : budget) {
            if (json_.back() != '[') {
                json_ += ',';
            }
            write(categoryID);
            json_ += ',';
            write(amount);
        }
        json_ += ']';
    }

    void write(const std::string& text) { appendJSONString(json_, text); }

    template <typename Enumeration>
    requires std::is_enum_v<Enumeration>
    void write(Enumeration value) {
        json_ += '"';
        json_ += rawValue(value);
        json_ += '"';
    }

    void write(std::same_as<bool> auto value) { json_ += value ? "true" : "false"; }

    void write(long long number) { json_ += std::to_string(number); }

    void write(const Decimal& number) {
        if (number.isNaN()) {
            throw LocalizedError("The library holds an amount that is not a number.");
        }
        number.appendTo(json_);
    }

    void write(const UUID& id) {
        json_ += '"';
        id.appendTo(json_);
        json_ += '"';
    }

    void write(Date date) {
        json_ += '"';
        appendDateText(json_, date);
        json_ += '"';
    }

private:
    template <typename Value>
    void writeField(std::string_view key, const Value& value, char& separator) {
        json_ += separator;
        separator = ',';
        json_ += '"';
        json_ += key;
        json_ += "\":";
        write(value);
    }

    template <typename Value>
    void writeField(std::string_view key, const std::optional<Value>& value, char& separator) {
        if (value) {
            writeField(key, *value, separator);
        }
    }

    template <typename Elements>
    void writeList(const Elements& elements) {
        json_ += '[';
        bool isFirst = true;
        for (const auto& element : elements) {
            if (!isFirst) {
                json_ += ',';
            }
            isFirst = false;
            write(element);
        }
        json_ += ']';
    }

    std::string& json_;
};

} // namespace

std::string encodeLibrary(const Library& library) {
    // Growing a long text by copying it costs more than writing it does.
    constexpr std::size_t typicalEntryLength = 480;
    std::string json;
    json.reserve((library.transactions.size() + 100) * typicalEntryLength);
    LibraryEncoder(json).write(library);
    return json;
}

} // namespace oakfen

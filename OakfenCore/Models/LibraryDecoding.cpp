#include <array>
#include <limits>
#include <type_traits>

#include "OakfenCore/Models/DateText.h"
#include "OakfenCore/Models/JSONReader.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Models/RecordFields.h"

namespace oakfen {

namespace {

template <typename Value>
inline constexpr bool isOptional = false;
template <typename Value>
inline constexpr bool isOptional<std::optional<Value>> = true;

[[noreturn]] void fail(std::string reason) {
    throw JSONError{{}, std::move(reason)};
}

/// Runs a reader of one part of the document; what goes wrong there is said to lie at that place.
template <typename Place, typename Read>
void readAt(const Place& place, Read&& read) {
    try {
        read();
    } catch (JSONError& error) {
        error.path.insert(0, place());
        throw;
    }
}

/// Reads the values of the document into the members of records.
class LibraryDecoder {
public:
    explicit LibraryDecoder(JSONReader& reader) : reader_(reader) {}

    template <RecordType Record>
    void read(Record& record);

    template <typename Element>
    void read(SharedArray<Element>& elements) {
        readList(elements);
    }
    template <typename Element>
    void read(std::vector<Element>& elements) {
        readList(elements);
    }

    void read(std::map<UUID, Decimal>& budget);

    template <typename Value>
    void read(std::optional<Value>& value) {
        if (reader_.readNull()) {
            value.reset();
        } else {
            read(value.emplace());
        }
    }

    template <typename Enumeration>
    requires std::is_enum_v<Enumeration>
    void read(Enumeration& value) {
        const std::string_view text = reader_.readString();
        const auto known = fromRawValue<Enumeration>(text);
        if (!known) {
            fail("“" + std::string(text) + "” is unknown");
        }
        value = *known;
    }

    void read(std::string& text) { text = reader_.readString(); }
    void read(bool& value) { value = reader_.readBoolean(); }
    void read(long long& number);
    void read(Decimal& number);
    void read(UUID& id);
    void read(Date& date);

private:
    template <typename Elements>
    void readList(Elements& elements);

    JSONReader& reader_;
};

/// One field of a record, for finding it by its key.
template <typename Record>
struct FieldReader {
    std::string_view key;
    bool isRequired;
    void (*read)(LibraryDecoder& decoder, Record& record);
};

template <typename Record, std::size_t... indices>
constexpr auto makeFieldReaders(std::index_sequence<indices...>) {
    return std::array{FieldReader<Record>{
        std::get<indices>(fieldsOf<Record>).key,
        !isOptional<std::remove_cvref_t<decltype(std::declval<Record&>().*
                                                 std::get<indices>(fieldsOf<Record>).member)>>,
        [](LibraryDecoder& decoder, Record& record) {
            decoder.read(record.*std::get<indices>(fieldsOf<Record>).member);
        }}...};
}

template <typename Record>
constexpr auto fieldReaders = makeFieldReaders<Record>(
    std::make_index_sequence<std::tuple_size_v<std::remove_const_t<decltype(fieldsOf<Record>)>>>());

template <RecordType Record>
void LibraryDecoder::read(Record& record) {
    constexpr const auto& fields = fieldReaders<Record>;
    std::array<bool, fields.size()> isPresent{};
    // Our own texts hold the keys in order, so the next one is mostly the next field.
    std::size_t expected = 0;
    reader_.enterObject();
    while (const auto key = reader_.nextKey()) {
        std::size_t index = expected;
        std::size_t tried = 0;
        while (tried < fields.size() && fields[index].key != *key) {
            index = (index + 1) % fields.size();
            ++tried;
        }
        if (tried == fields.size()) {
            readAt([name = std::string(*key)] { return "." + name; }, [&] { reader_.skipValue(); });
            continue;
        }
        readAt([&] { return "." + std::string(fields[index].key); },
               [&] { fields[index].read(*this, record); });
        isPresent[index] = true;
        expected = (index + 1) % fields.size();
    }
    for (std::size_t index = 0; index < fields.size(); ++index) {
        if (fields[index].isRequired && !isPresent[index]) {
            fail("the key “" + std::string(fields[index].key) + "” is missing");
        }
    }
}

template <typename Elements>
void LibraryDecoder::readList(Elements& elements) {
    elements.clear(); // of two equal keys the later one counts
    reader_.enterArray();
    while (reader_.nextElement()) {
        readAt([&] { return "[" + std::to_string(elements.size()) + "]"; },
               [&] {
                   typename Elements::value_type element;
                   read(element);
                   elements.push_back(std::move(element));
               });
    }
}

void LibraryDecoder::read(std::map<UUID, Decimal>& budget) {
    budget.clear();
    std::size_t index = 0;
    const auto place = [&] { return "[" + std::to_string(index) + "]"; };
    reader_.enterArray();
    while (reader_.nextElement()) {
        UUID categoryID;
        Decimal amount;
        readAt(place, [&] { read(categoryID); });
        ++index;
        if (!reader_.nextElement()) {
            fail("the last category has no amount");
        }
        readAt(place, [&] { read(amount); });
        ++index;
        budget.insert_or_assign(categoryID, amount);
    }
}

void LibraryDecoder::read(Decimal& number) {
    const auto value = Decimal::parseJSONNumber(reader_.readNumber());
    if (!value) {
        fail("a number out of range");
    }
    number = *value;
}

void LibraryDecoder::read(long long& number) {
    Decimal value;
    read(value);
    if (value != value.rounded(0, RoundingMode::plain)) {
        fail("not a whole number");
    }
    if (value < Decimal(std::numeric_limits<long long>::min()) ||
        value > Decimal(std::numeric_limits<long long>::max())) {
        fail("a number out of range");
    }
    Int128 whole = value.coefficient();
    for (int exponent = value.exponent(); exponent > 0; --exponent) {
        whole *= 10;
    }
    number = static_cast<long long>(whole);
}

void LibraryDecoder::read(UUID& id) {
    const auto value = UUID::parse(reader_.readString());
    if (!value) {
        fail("not an identifier");
    }
    id = *value;
}

void LibraryDecoder::read(Date& date) {
    const auto value = parseDateText(reader_.readString());
    if (!value) {
        fail("not a date");
    }
    date = *value;
}

} // namespace

Library decodeLibrary(std::string_view json) {
    Library library;
    try {
        JSONReader reader(json);
        LibraryDecoder(reader).read(library);
        reader.finish();
    } catch (const JSONError& error) {
        // The path of a field begins with the dot between it and the document itself.
        const std::string path = error.path.substr(error.path.starts_with('.') ? 1 : 0);
        throw LibraryDecodingError(path.empty() ? error.reason : path + ": " + error.reason);
    }
    if (library.version > Library::currentVersion) {
        throw LibraryDecodingError("This file was created by a newer version of Oakfen.");
    }
    return library;
}

} // namespace oakfen

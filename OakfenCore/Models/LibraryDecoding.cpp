#include <array>
#include <limits>
#include <memory>
#include <type_traits>

#include "OakfenCore/Models/DateText.h"
#include "OakfenCore/Models/JSONParsing.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Models/RecordFields.h"

namespace oakfen {

namespace {

[[noreturn]] void fail(std::string reason) {
    throw JSONError{std::move(reason)};
}

void require(const JSONValue& json, JSONValue::Kind kind, const char* reason) {
    if (json.kind != kind) {
        fail(reason);
    }
}

std::string_view textOf(const JSONValue& json) {
    require(json, JSONValue::Kind::text, "not a text");
    return json.text;
}

void assign(const JSONValue& json, std::string& text) {
    text = textOf(json);
}

void assign(const JSONValue& json, bool& value) {
    require(json, JSONValue::Kind::boolean, "not true or false");
    value = json.boolean;
}

template <typename Enumeration>
requires std::is_enum_v<Enumeration>
void assign(const JSONValue& json, Enumeration& value) {
    const std::string_view text = textOf(json);
    const auto known = fromRawValue<Enumeration>(text);
    if (!known) {
        fail("“" + std::string(text) + "” is unknown");
    }
    value = *known;
}

void assign(const JSONValue& json, Decimal& number) {
    require(json, JSONValue::Kind::number, "not a number");
    const auto value = Decimal::parseJSONNumber(json.text);
    if (!value) {
        fail("a number out of range");
    }
    number = *value;
}

void assign(const JSONValue& json, long long& number) {
    Decimal value;
    assign(json, value);
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

void assign(const JSONValue& json, UUID& id) {
    const auto value = UUID::parse(textOf(json));
    if (!value) {
        fail("not an identifier");
    }
    id = *value;
}

void assign(const JSONValue& json, Date& date) {
    const auto value = parseDateText(textOf(json));
    if (!value) {
        fail("not a date");
    }
    date = *value;
}

template <typename Value>
inline constexpr bool isOptional = false;
template <typename Value>
inline constexpr bool isOptional<std::optional<Value>> = true;

template <typename Value>
inline constexpr bool isList = false;
template <typename Element>
inline constexpr bool isList<SharedArray<Element>> = true;
template <typename Element>
inline constexpr bool isList<std::vector<Element>> = true;

class LibraryDecoder;

/// A list or an object that has begun and not ended yet, and the part of the document that it is
/// read into.
class Frame {
public:
    virtual ~Frame() = default;

    /// Notes the key of the next value.
    virtual void key(std::string_view) {}
    /// Reads the next value; if it is a list or an object, that opens a frame of its own.
    virtual void read(LibraryDecoder& decoder, const JSONValue& json) = 0;
    /// The value that was read last is whole.
    virtual void valueEnded() {}
    /// The list or object itself is whole.
    virtual void end() {}
    /// Where the next value goes, or the one that has begun: ".amount", "[12]".
    [[nodiscard]] virtual std::string place() const { return {}; }
};

/// Reads the values of a JSON text into the members of records.
///
/// It keeps a stack of frames: at the bottom the document, above it perhaps the list of entries,
/// one entry, its list of splits, one split. Each value goes to the frame on top. The places of all
/// frames in a row are the path that an error names.
class LibraryDecoder : public JSONListener {
public:
    explicit LibraryDecoder(Library& library);

    void key(std::string_view key) override;
    void value(const JSONValue& json) override;
    void end() override;

    /// Takes the value over, or opens a frame for it.
    template <typename Value>
    void read(const JSONValue& json, Value& value);
    /// Passes over the value and all that is in it.
    void skip(const JSONValue& json) { skippedLevels_ = json.opens() ? 1 : 0; }

    [[nodiscard]] std::string path() const;

private:
    template <typename NewFrame, typename Value>
    void open(Value& value) {
        frames_.push_back(std::make_unique<NewFrame>(value));
    }

    std::vector<std::unique_ptr<Frame>> frames_;
    /// How many lists and objects are open within the frames, all of which nobody wants.
    std::size_t skippedLevels_ = 0;
};

/// The text as a whole, which is one value.
class DocumentFrame : public Frame {
public:
    explicit DocumentFrame(Library& library) : library_(library) {}

    void read(LibraryDecoder& decoder, const JSONValue& json) override {
        decoder.read(json, library_);
    }

private:
    Library& library_;
};

template <typename Elements>
class ListFrame : public Frame {
public:
    explicit ListFrame(Elements& elements) : elements_(elements) {
        elements_.clear(); // of two equal keys the later one counts
    }

    void read(LibraryDecoder& decoder, const JSONValue& json) override {
        decoder.read(json, element_);
    }
    void valueEnded() override {
        elements_.push_back(std::move(element_));
        element_ = {};
    }
    [[nodiscard]] std::string place() const override {
        return "[" + std::to_string(elements_.size()) + "]";
    }

private:
    Elements& elements_;
    typename Elements::value_type element_{};
};

/// A list in which categories and their amounts alternate.
class BudgetFrame : public Frame {
public:
    using Budget = std::map<UUID, Decimal>;

    explicit BudgetFrame(Budget& budget) : budget_(budget) { budget_.clear(); }

    void read(LibraryDecoder& decoder, const JSONValue& json) override {
        if (isAtAmount()) {
            decoder.read(json, budget_[categoryID_]);
        } else {
            decoder.read(json, categoryID_);
        }
    }
    void valueEnded() override { ++index_; }
    void end() override {
        if (isAtAmount()) {
            fail("the last category has no amount");
        }
    }
    [[nodiscard]] std::string place() const override { return "[" + std::to_string(index_) + "]"; }

private:
    [[nodiscard]] bool isAtAmount() const { return index_ % 2 == 1; }

    Budget& budget_;
    std::size_t index_ = 0;
    UUID categoryID_;
};

/// One field of a record, for finding it by its key.
template <typename Record>
struct FieldReader {
    std::string_view key;
    bool isRequired;
    void (*read)(LibraryDecoder& decoder, const JSONValue& json, Record& record);
};

template <typename Record, std::size_t... indices>
constexpr auto makeFieldReaders(std::index_sequence<indices...>) {
    return std::array{FieldReader<Record>{
        std::get<indices>(fieldsOf<Record>).key,
        !isOptional<std::remove_cvref_t<decltype(std::declval<Record&>().*
                                                 std::get<indices>(fieldsOf<Record>).member)>>,
        [](LibraryDecoder& decoder, const JSONValue& json, Record& record) {
            decoder.read(json, record.*std::get<indices>(fieldsOf<Record>).member);
        }}...};
}

template <typename Record>
constexpr auto fieldReaders = makeFieldReaders<Record>(
    std::make_index_sequence<std::tuple_size_v<std::remove_const_t<decltype(fieldsOf<Record>)>>>());

template <RecordType Record>
class RecordFrame : public Frame {
public:
    explicit RecordFrame(Record& record) : record_(record) {}

    void key(std::string_view key) override {
        // Our own texts hold the keys in order, so this one is mostly the next field's.
        for (std::size_t tried = 0; tried < fields.size(); ++tried) {
            const std::size_t index = (expected_ + tried) % fields.size();
            if (fields[index].key == key) {
                field_ = &fields[index];
                isPresent_[index] = true;
                expected_ = index + 1;
                return;
            }
        }
        unknownKey_ = key;
    }
    void read(LibraryDecoder& decoder, const JSONValue& json) override {
        if (field_ != nullptr) {
            field_->read(decoder, json, record_);
        } else {
            decoder.skip(json);
        }
    }
    void valueEnded() override {
        field_ = nullptr;
        unknownKey_.clear();
    }
    void end() override {
        for (std::size_t index = 0; index < fields.size(); ++index) {
            if (fields[index].isRequired && !isPresent_[index]) {
                fail("the key “" + std::string(fields[index].key) + "” is missing");
            }
        }
    }
    [[nodiscard]] std::string place() const override {
        if (field_ != nullptr) {
            return "." + std::string(field_->key);
        }
        return unknownKey_.empty() ? "" : "." + unknownKey_;
    }

private:
    static constexpr const auto& fields = fieldReaders<Record>;

    Record& record_;
    std::array<bool, fields.size()> isPresent_{};
    std::size_t expected_ = 0;
    /// The field whose value is next or has begun; none between fields and at an unknown key.
    const FieldReader<Record>* field_ = nullptr;
    std::string unknownKey_;
};

LibraryDecoder::LibraryDecoder(Library& library) {
    open<DocumentFrame>(library);
}

void LibraryDecoder::key(std::string_view key) {
    if (skippedLevels_ == 0) {
        frames_.back()->key(key);
    }
}

void LibraryDecoder::value(const JSONValue& json) {
    if (skippedLevels_ > 0) {
        skippedLevels_ += json.opens() ? 1 : 0;
        return;
    }
    Frame& frame = *frames_.back();
    frame.read(*this, json);
    if (!json.opens()) {
        frame.valueEnded();
    }
}

void LibraryDecoder::end() {
    if (skippedLevels_ > 0) {
        --skippedLevels_;
    } else {
        const std::unique_ptr<Frame> ended = std::move(frames_.back());
        frames_.pop_back();
        ended->end();
    }
    if (skippedLevels_ == 0) {
        frames_.back()->valueEnded();
    }
}

template <typename Value>
void LibraryDecoder::read(const JSONValue& json, Value& value) {
    if constexpr (isOptional<Value>) {
        if (json.kind == JSONValue::Kind::null) {
            value.reset();
        } else {
            read(json, value.emplace());
        }
    } else if constexpr (RecordType<Value>) {
        require(json, JSONValue::Kind::object, "not an object");
        open<RecordFrame<Value>>(value);
    } else if constexpr (isList<Value>) {
        require(json, JSONValue::Kind::list, "not a list");
        open<ListFrame<Value>>(value);
    } else if constexpr (std::is_same_v<Value, BudgetFrame::Budget>) {
        require(json, JSONValue::Kind::list, "not a list");
        open<BudgetFrame>(value);
    } else {
        assign(json, value);
    }
}

std::string LibraryDecoder::path() const {
    std::string path;
    for (const auto& frame : frames_) {
        path += frame->place();
    }
    // The place of a field begins with the dot between it and the document itself.
    return path.starts_with('.') ? path.substr(1) : path;
}

} // namespace

Library decodeLibrary(std::string_view json) {
    Library library;
    LibraryDecoder decoder(library);
    try {
        parseJSON(json, decoder);
    } catch (const JSONError& error) {
        const std::string path = decoder.path();
        throw LibraryDecodingError(path.empty() ? error.reason : path + ": " + error.reason);
    }
    if (library.version > Library::currentVersion) {
        throw LibraryDecodingError("This file was created by a newer version of Oakfen.");
    }
    return library;
}

} // namespace oakfen

#include <array>
#include <type_traits>

#include "OakfenCore/Models/JSONScalars.h"
#include "OakfenCore/Models/LibraryCoding.h"
#include "OakfenCore/Models/LibraryDecoder.h"
#include "OakfenCore/Models/RecordFields.h"
#include "OakfenCore/Support/Text/Quotation.h"

namespace oakfen {

namespace {

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

/// The text as a whole, which is one value.
class DocumentFrame : public DecodingFrame {
public:
    explicit DocumentFrame(Library& library) : library_(library) {}

    void read(LibraryDecoder& decoder, const JSONValue& json) override {
        decoder.read(json, library_);
    }

private:
    Library& library_;
};

template <typename Elements>
class ListFrame : public DecodingFrame {
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
class BudgetFrame : public DecodingFrame {
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
            throw JSONError("the last category has no amount");
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
class RecordFrame : public DecodingFrame {
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
                throw JSONError("the key “" + std::string(fields[index].key) + "” is missing");
            }
        }
    }
    [[nodiscard]] std::string place() const override {
        if (field_ != nullptr) {
            return "." + std::string(field_->key);
        }
        return unknownKey_.empty() ? "" : "." + legible(unknownKey_);
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

} // namespace

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
    DecodingFrame& frame = *frames_.back();
    frame.read(*this, json);
    if (!json.opens()) {
        frame.valueEnded();
    }
}

void LibraryDecoder::end() {
    if (skippedLevels_ > 0) {
        --skippedLevels_;
    } else {
        const std::unique_ptr<DecodingFrame> ended = std::move(frames_.back());
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
        requireKind(json, JSONValue::Kind::object, "not an object");
        open<RecordFrame<Value>>(value);
    } else if constexpr (isList<Value>) {
        requireKind(json, JSONValue::Kind::list, "not a list");
        open<ListFrame<Value>>(value);
    } else if constexpr (std::is_same_v<Value, BudgetFrame::Budget>) {
        requireKind(json, JSONValue::Kind::list, "not a list");
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

Library decodeLibrary(std::string_view json) {
    Library library;
    LibraryDecoder decoder(library);
    try {
        parseJSON(json, decoder);
    } catch (const JSONError& error) {
        const std::string path = decoder.path();
        const std::string reason = error.localizedDescription();
        throw LibraryDecodingError("its contents are damaged",
                                   path.empty() ? reason : path + ": " + reason);
    }
    if (library.version > Library::currentVersion) {
        throw LibraryDecodingError("This file was created by a newer version of Oakfen.");
    }
    return library;
}

} // namespace oakfen

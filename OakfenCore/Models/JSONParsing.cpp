#include "OakfenCore/Models/JSONParsing.h"

#include <cstddef>
#include <limits>

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include "OakfenCore/Support/Text/Text.h"

namespace oakfen {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

[[noreturn]] void fail(std::string_view reason, std::size_t position) {
    throw JSONError(std::string(reason) + " (byte " + std::to_string(position) + ")");
}

/// Passes the reader's events on.
class EventHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, EventHandler> {
public:
    EventHandler(JSONListener& listener, const rapidjson::MemoryStream& stream)
        : listener_(listener), stream_(stream) {}

    // The names and the results are the reader's: to go on, the answer is true.
    bool Null() { return tell({JSONValue::Kind::null}); }
    bool Bool(bool value) { return tell({JSONValue::Kind::boolean, value}); }
    bool RawNumber(const char* text, rapidjson::SizeType length, bool) {
        return tell({JSONValue::Kind::number, false, {text, length}});
    }
    bool String(const char* text, rapidjson::SizeType length, bool) {
        return tell({JSONValue::Kind::text, false, checked({text, length})});
    }
    bool StartArray() { return tell({JSONValue::Kind::list}); }
    bool StartObject() { return tell({JSONValue::Kind::object}); }
    bool Key(const char* text, rapidjson::SizeType length, bool) {
        listener_.key(checked({text, length}));
        return true;
    }
    bool EndArray(rapidjson::SizeType) { return tellEnd(); }
    bool EndObject(rapidjson::SizeType) { return tellEnd(); }

private:
    bool tell(const JSONValue& value) {
        listener_.value(value);
        return true;
    }
    bool tellEnd() {
        listener_.end();
        return true;
    }
    /// The reader's own check of the encoding is slower, and passes escapes on that are half of a
    /// character, such as "\udc00".
    [[nodiscard]] std::string_view checked(std::string_view text) const {
        if (!isValidUTF8(text)) {
            fail("not UTF-8", stream_.Tell());
        }
        return text;
    }

    JSONListener& listener_;
    const rapidjson::MemoryStream& stream_;
};

const char* reasonFor(rapidjson::ParseErrorCode code) {
    switch (code) {
    case rapidjson::kParseErrorDocumentRootNotSingular:
        return "something follows the end";
    case rapidjson::kParseErrorObjectMissName:
        return "expected a key";
    case rapidjson::kParseErrorObjectMissColon:
        return "expected a colon";
    case rapidjson::kParseErrorObjectMissCommaOrCurlyBracket:
        return "expected a comma or a closing brace";
    case rapidjson::kParseErrorArrayMissCommaOrSquareBracket:
        return "expected a comma or a closing bracket";
    case rapidjson::kParseErrorStringMissQuotationMark: // before the end, that is at a NUL byte
    case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
    case rapidjson::kParseErrorStringEscapeInvalid:
        return "an unknown escape or a control character";
    case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
        return "half of a character";
    case rapidjson::kParseErrorNumberMissFraction:
    case rapidjson::kParseErrorNumberMissExponent:
        return "a number without a digit where one belongs";
    default:
        return "expected a value";
    }
}

} // namespace

void parseJSON(std::string_view text, JSONListener& listener) {
    // The reader counts the bytes of a string in 32 bits.
    if (text.size() > std::numeric_limits<rapidjson::SizeType>::max()) {
        throw JSONError("longer than 4 GiB");
    }
    rapidjson::MemoryStream stream(text.data(), text.size());
    if (text.starts_with(byteOrderMark)) {
        stream.src_ += byteOrderMark.size();
    }
    EventHandler handler(listener, stream);
    constexpr unsigned flags =
        rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseIterativeFlag;
    rapidjson::Reader reader;
    const rapidjson::ParseResult result = reader.Parse<flags>(stream, handler);
    if (result.Code() == rapidjson::kParseErrorNumberTooBig) {
        throw JSONError("a number out of range");
    }
    if (result.IsError()) {
        const bool isAtEnd = result.Offset() == text.size();
        fail(isAtEnd ? "the text ends too early" : reasonFor(result.Code()), result.Offset());
    }
    // The reader takes a NUL byte for the end of the text.
    if (stream.Tell() < text.size()) {
        fail("something follows the end", stream.Tell());
    }
}

} // namespace oakfen

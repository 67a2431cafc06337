#include "OakfenCore/Models/JSONReader.h"

#include <array>
#include <cstdint>
#include <vector>

#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace oakfen {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The bytes that stand for themselves in a string and are whole characters.
constexpr std::array<bool, 256> makePlainBytes() {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 0x20; byte < 0x80; ++byte) {
        plain[byte] = byte != '"' && byte != '\\';
    }
    return plain;
}
constexpr std::array<bool, 256> plainBytes = makePlainBytes();

bool isPlain(char character) {
    return plainBytes[static_cast<unsigned char>(character)];
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

void appendUTF8(std::string& text, char32_t codePoint) {
    std::array<std::uint8_t, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes.data(), length, codePoint);
    for (std::size_t index = 0; index < length; ++index) {
        text += static_cast<char>(bytes[index]);
    }
}

} // namespace

JSONReader::JSONReader(std::string_view text)
    : start_(text.data()), next_(text.data()), end_(text.data() + text.size()) {
    if (text.starts_with(byteOrderMark)) {
        next_ += byteOrderMark.size();
    }
    skipWhiteSpace();
}

bool JSONReader::readNull() {
    return takeWord("null");
}

bool JSONReader::readBoolean() {
    if (takeWord("true")) {
        return true;
    }
    if (takeWord("false")) {
        return false;
    }
    failAsNot("not true or false");
}

std::string_view JSONReader::readNumber() {
    const char* const first = next_;
    if (peek() != '-' && !isDigit(peek())) {
        failAsNot("not a number");
    }
    take('-');
    if (!take('0')) {
        takeDigits();
    }
    if (take('.')) {
        takeDigits();
    }
    if (take('e') || take('E')) {
        if (!take('+')) {
            take('-');
        }
        takeDigits();
    }
    if (isDigit(peek())) {
        fail("a number with a leading zero");
    }
    return {first, static_cast<std::size_t>(next_ - first)};
}

std::string_view JSONReader::readString() {
    if (!take('"')) {
        failAsNot("not a text");
    }
    const char* const first = next_;
    while (next_ != end_) {
        if (isPlain(*next_)) {
            ++next_;
        } else if (*next_ == '"') {
            ++next_;
            return {first, static_cast<std::size_t>(next_ - 1 - first)};
        } else if (*next_ == '\\') {
            return readEscapedString(first);
        } else {
            takeCharacter();
        }
    }
    fail("a text without an end");
}

std::string_view JSONReader::readEscapedString(const char* start) {
    unescaped_.assign(start, next_);
    while (next_ != end_) {
        const char* const first = next_;
        if (take('"')) {
            return unescaped_;
        }
        if (*next_ == '\\') {
            readEscape();
            continue;
        }
        while (next_ != end_ && isPlain(*next_)) {
            ++next_;
        }
        if (next_ == first) {
            takeCharacter();
        }
        unescaped_.append(first, next_);
    }
    fail("a text without an end");
}

void JSONReader::readEscape() {
    constexpr std::string_view letters = "\"\\/bfnrt";
    constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
    ++next_;
    if (const std::size_t index = letters.find(peek()); index != std::string_view::npos) {
        ++next_;
        unescaped_ += meanings[index];
        return;
    }
    if (!take('u')) {
        fail("an unknown escape");
    }
    char32_t codePoint = readHexDigits();
    if (U16_IS_LEAD(codePoint)) {
        const bool hasPartner = take('\\') && take('u');
        const char32_t trail = hasPartner ? readHexDigits() : 0;
        if (!U16_IS_TRAIL(trail)) {
            fail("half of a character");
        }
        codePoint = static_cast<char32_t>(U16_GET_SUPPLEMENTARY(codePoint, trail));
    } else if (U16_IS_TRAIL(codePoint)) {
        fail("half of a character");
    }
    appendUTF8(unescaped_, codePoint);
}

unsigned JSONReader::readHexDigits() {
    unsigned value = 0;
    for (int digit = 0; digit < 4; ++digit) {
        const char character = peek();
        unsigned digitValue = 0;
        if (isDigit(character)) {
            digitValue = static_cast<unsigned>(character - '0');
        } else if (character >= 'a' && character <= 'f') {
            digitValue = static_cast<unsigned>(character - 'a') + 10;
        } else if (character >= 'A' && character <= 'F') {
            digitValue = static_cast<unsigned>(character - 'A') + 10;
        } else {
            fail("an unknown escape");
        }
        value = value * 16 + digitValue;
        ++next_;
    }
    return value;
}

/// Passes over one character outside of ASCII.
void JSONReader::takeCharacter() {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(next_);
    if (*bytes < 0x20) {
        fail("a control character in a text");
    }
    const std::ptrdiff_t length = end_ - next_;
    std::ptrdiff_t position = 0;
    UChar32 codePoint = 0;
    U8_NEXT(bytes, position, length, codePoint);
    if (codePoint < 0) {
        fail("not UTF-8");
    }
    next_ += position;
}

void JSONReader::enterObject() {
    enter('{', "not an object");
}

void JSONReader::enterArray() {
    enter('[', "not a list");
}

void JSONReader::enter(char bracket, const char* expected) {
    if (!take(bracket)) {
        failAsNot(expected);
    }
    isAtStartOfContainer_ = true;
}

std::optional<std::string_view> JSONReader::nextKey() {
    if (!nextMember('}')) {
        return std::nullopt;
    }
    if (peek() != '"') {
        fail("expected a key");
    }
    const std::string_view key = readString();
    skipWhiteSpace();
    if (!take(':')) {
        fail("expected a colon");
    }
    skipWhiteSpace();
    return key;
}

bool JSONReader::nextElement() {
    return nextMember(']');
}

bool JSONReader::nextMember(char closingBracket) {
    const bool isFirst = isAtStartOfContainer_;
    isAtStartOfContainer_ = false;
    skipWhiteSpace();
    if (take(closingBracket)) {
        return false;
    }
    if (!isFirst && !take(',')) {
        fail(closingBracket == '}' ? "expected a comma or a closing brace"
                                   : "expected a comma or a closing bracket");
    }
    skipWhiteSpace();
    return true;
}

void JSONReader::skipValue() {
    std::vector<bool> isObject; // for each value that is open around the present one
    do {
        if (!isObject.empty() && !(isObject.back() ? nextKey().has_value() : nextElement())) {
            isObject.pop_back();
            continue;
        }
        switch (peek()) {
        case '{':
        case '[':
            isObject.push_back(peek() == '{');
            ++next_;
            isAtStartOfContainer_ = true;
            break;
        case '"':
            static_cast<void>(readString());
            break;
        case 't':
        case 'f':
            static_cast<void>(readBoolean());
            break;
        case 'n':
            if (!readNull()) {
                fail("expected a value");
            }
            break;
        default:
            static_cast<void>(readNumber());
        }
    } while (!isObject.empty());
}

void JSONReader::finish() {
    skipWhiteSpace();
    if (next_ != end_) {
        fail("something follows the end");
    }
}

void JSONReader::skipWhiteSpace() {
    while (next_ != end_ && (*next_ == ' ' || *next_ == '\n' || *next_ == '\r' || *next_ == '\t')) {
        ++next_;
    }
}

bool JSONReader::take(char character) {
    if (next_ == end_ || *next_ != character) {
        return false;
    }
    ++next_;
    return true;
}

bool JSONReader::takeWord(std::string_view word) {
    if (!std::string_view(next_, static_cast<std::size_t>(end_ - next_)).starts_with(word)) {
        return false;
    }
    next_ += word.size();
    return true;
}

void JSONReader::takeDigits() {
    if (!isDigit(peek())) {
        fail("a number without a digit where one belongs");
    }
    while (isDigit(peek())) {
        ++next_;
    }
}

void JSONReader::failAsNot(const char* expected) {
    constexpr std::string_view valueStarts = "{[\"-0123456789tfn";
    if (next_ == end_) {
        fail("the text ends too early");
    }
    if (valueStarts.find(*next_) == std::string_view::npos) {
        fail("expected a value");
    }
    throw JSONError{{}, expected};
}

void JSONReader::fail(const char* reason) const {
    throw JSONError{{}, std::string(reason) + " (byte " + std::to_string(next_ - start_) + ")"};
}

} // namespace oakfen

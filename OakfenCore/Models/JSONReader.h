#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace oakfen {

/// Why a text can't be read, and the place: first in the text, then, as the error passes outwards
/// through the readers of lists and objects, as a path such as "transactions[12].amount".
struct JSONError {
    std::string path;
    std::string reason;
};

/// Reads a JSON text (RFC 8259) from front to back, one value at a time, as its caller asks.
///
/// The whole grammar is enforced, also within values that are skipped: well-formed UTF-8, no
/// unpaired surrogates, no control characters in strings, no leading zeros, no trailing commas. A
/// byte order mark before the text is passed over. Nesting takes no stack, so no text can exhaust
/// it. Numbers stay text, so that none is rounded. Every function throws `JSONError` when the text
/// holds something else than what is asked for.
class JSONReader {
public:
    /// The text must live as long as the reader.
    explicit JSONReader(std::string_view text);

    /// Passes over a null if one is next.
    [[nodiscard]] bool readNull();
    [[nodiscard]] bool readBoolean();
    /// The number as it is written; valid as long as the text.
    [[nodiscard]] std::string_view readNumber();
    /// The string without its escapes; valid until the next string is read.
    [[nodiscard]] std::string_view readString();

    void enterObject();
    /// Goes on to the value of the next key, or leaves the object when it has no more; valid until
    /// the next string is read.
    [[nodiscard]] std::optional<std::string_view> nextKey();

    void enterArray();
    /// Goes on to the next element, or leaves the array when it has no more.
    [[nodiscard]] bool nextElement();

    void skipValue();

    /// Makes sure that nothing follows.
    void finish();

private:
    [[nodiscard]] char peek() const { return next_ == end_ ? '\0' : *next_; }
    void skipWhiteSpace();
    bool take(char character);
    bool takeWord(std::string_view word);
    void takeDigits();
    bool nextMember(char closingBracket);
    void enter(char bracket, const char* expected);

    std::string_view readEscapedString(const char* start);
    void readEscape();
    unsigned readHexDigits();
    void takeCharacter();

    /// What was asked for isn't there: a complaint about the value if there is a sound one.
    [[noreturn]] void failAsNot(const char* expected);
    [[noreturn]] void fail(const char* reason) const;

    const char* start_;
    const char* next_;
    const char* end_;
    bool isAtStartOfContainer_ = false;
    std::string unescaped_;
};

} // namespace oakfen

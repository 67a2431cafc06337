#pragma once

#include <string_view>

#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {

/// Why a text can't be read.
class JSONError : public LocalizedError {
public:
    using LocalizedError::LocalizedError;
};

/// A value as it stands in a JSON text. Of a list or an object it is the beginning only.
struct JSONValue {
    enum class Kind { null, boolean, number, text, list, object };

    Kind kind = Kind::null;
    bool boolean = false;
    /// The text without its escapes, or the number as it is written, so that none is rounded.
    std::string_view text = {};

    [[nodiscard]] bool opens() const { return kind == Kind::list || kind == Kind::object; }
};

/// Is told what a JSON text holds, from front to back. Views are valid during the call only. What
/// it throws ends the parsing.
class JSONListener {
public:
    virtual ~JSONListener() = default;

    /// The key of an object's next value.
    virtual void key(std::string_view key) = 0;
    virtual void value(const JSONValue& value) = 0;
    /// The list or object that began last, and hasn't ended yet, ends.
    virtual void end() = 0;
};

/// Parses a JSON text (RFC 8259), strictly: the listener hears of sound values only, and every text
/// is well-formed UTF-8. Numbers too large for a double are refused. A byte order mark before the
/// text is passed over. No nesting is too deep. Throws `JSONError`.
void parseJSON(std::string_view text, JSONListener& listener);

} // namespace oakfen

#pragma once

#include <string>
#include <string_view>

#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {

/// The text can't be read as a document. Says what is wrong and where in the text.
class LibraryDecodingError : public LocalizedError {
public:
    using LocalizedError::LocalizedError;
};

/// The document as JSON: keys sorted, no white space, exact decimals, dates in UTC to the second.
/// The same document gives the same bytes. Throws `LocalizedError` for a value that has no form
/// there (an amount that is not a number, a date out of range).
[[nodiscard]] std::string encodeLibrary(const Library& library);

/// Reads such a text, strictly: every required key with the right type, no defaults; unknown keys
/// are ignored. Throws `LibraryDecodingError`.
[[nodiscard]] Library decodeLibrary(std::string_view json);

/// Whether the bytes begin as a document does: an object whose first key is one of a document's,
/// with a value that begins as that of a document, which tells it from other JSON. What follows may
/// be torn or damaged.
[[nodiscard]] bool beginsLikeLibrary(std::string_view bytes) noexcept;

} // namespace oakfen

#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "OakfenCore/Models/Library.h"
#include "OakfenCore/Support/Values/LocalizedError.h"

namespace oakfen {

/// The text can't be read as a document.
class LibraryDecodingError : public LocalizedError {
public:
    explicit LibraryDecodingError(const std::string& description, std::string place = {})
        : LocalizedError(description), place_(std::move(place)) {}

    /// What is wrong and where in the text, for somebody who wants to mend it; empty for a text
    /// that isn't damaged.
    [[nodiscard]] const std::string& place() const noexcept { return place_; }

private:
    std::string place_;
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

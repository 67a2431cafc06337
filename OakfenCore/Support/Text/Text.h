#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace oakfen {

/// Without blanks and tabs (Unicode's space separators and U+0009) at both ends; line ends stay.
[[nodiscard]] std::string_view trimmingWhitespaces(std::string_view text) noexcept;

/// Without blanks, tabs and line ends at both ends.
[[nodiscard]] std::string_view trimmingWhitespacesAndNewlines(std::string_view text) noexcept;

/// Whole-text case mapping of Unicode, the same in every locale.
[[nodiscard]] std::string lowercased(std::string_view text);
[[nodiscard]] std::string uppercased(std::string_view text);

/// Canonical composition (NFC).
[[nodiscard]] std::string composed(std::string_view text);

/// The form in which texts that differ only in case or composition are equal, in every locale.
[[nodiscard]] std::string caseFolded(std::string_view text);

/// Equality without regard to case (`caseInsensitiveCompare` gives "same"), in every locale.
[[nodiscard]] bool equalsCaseInsensitively(std::string_view a, std::string_view b);

/// Collation order of the user's locale, without regard to case: negative, 0 or positive.
[[nodiscard]] int localizedCaseInsensitiveCompare(std::string_view a, std::string_view b);

/// The same order, in which runs of digits count as numbers ("9" before "10").
[[nodiscard]] int localizedStandardCompare(std::string_view a, std::string_view b);

/// A byte string whose plain order is that of `localizedCaseInsensitiveCompare`; for long sorts.
[[nodiscard]] std::string localizedSortKey(std::string_view text);

/// Whether the text holds the term, without regard to case and composition but to accents. Every
/// text holds the empty one.
[[nodiscard]] bool localizedCaseInsensitiveContains(std::string_view text, std::string_view term);

/// A term that many texts are asked for, with the answers of `localizedCaseInsensitiveContains`.
class CaseInsensitiveTerm {
public:
    explicit CaseInsensitiveTerm(std::string_view term);

    /// Whether the text holds the term; every text holds the empty one.
    [[nodiscard]] bool isIn(std::string_view text) const;

private:
    std::string folded_;
};

/// Calls `visit` with each user-perceived character in turn; CR LF is one of them.
void forEachCharacter(std::string_view text, const std::function<void(std::string_view)>& visit);

/// The number of user-perceived characters.
[[nodiscard]] std::size_t characterCount(std::string_view text);

/// Whether the bytes are well-formed UTF-8.
[[nodiscard]] bool isValidUTF8(std::string_view bytes) noexcept;

/// ISO Latin-1 bytes as UTF-8.
[[nodiscard]] std::string latin1ToUTF8(std::string_view bytes);

/// The text with every occurrence of `sought`, from left to right, replaced.
[[nodiscard]] std::string replacingAll(std::string_view text, std::string_view sought,
                                       std::string_view replacement);

/// The text in pieces between the separators; empty pieces are kept.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, char separator);

/// The pieces in one text with the separator between them.
[[nodiscard]] std::string joined(const std::vector<std::string>& pieces,
                                 std::string_view separator);

} // namespace oakfen

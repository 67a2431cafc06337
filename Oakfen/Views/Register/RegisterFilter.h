#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "OakfenCore/LibraryIndex/RegisterRow.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// Which entries a register shows.
enum class RegisterFilter { all, thisMonth, last30, last90, thisYear, uncleared, uncategorized };

template <>
inline constexpr auto allCases<RegisterFilter> =
    std::array{RegisterFilter::all,          RegisterFilter::thisMonth, RegisterFilter::last30,
               RegisterFilter::last90,       RegisterFilter::thisYear,  RegisterFilter::uncleared,
               RegisterFilter::uncategorized};

[[nodiscard]] std::string_view title(RegisterFilter value) noexcept;

/// Answers for many rows whether a filter keeps them, at one moment.
class RegisterFilterTest {
public:
    RegisterFilterTest(RegisterFilter filter, Date now, const Calendar& calendar);

    [[nodiscard]] bool keeps(const RegisterRow& row) const;

private:
    RegisterFilter filter_;
    // The dates that are kept: from the first on, and before the end.
    Date start_ = Date::distantPast();
    Date end_ = Date::distantFuture();
    bool isEndKept_ = false;
};

/// Answers for many rows whether they hold a term: in the payee, category, memo or a tag without
/// regard to case, in the check number or the plain amount to the letter. A number as the user's
/// locale writes it also finds the equal amount, and those that show its digits; the sign of an
/// amount doesn't count, and a term with a minus finds none. The rows must outlive it, since it
/// remembers the payees, categories and tags that it looked into.
class RegisterSearch {
public:
    /// Blanks around the text don't count.
    explicit RegisterSearch(std::string_view searchText);

    /// Whether there is anything to look for.
    [[nodiscard]] bool isActive() const { return !term_.empty(); }
    [[nodiscard]] bool finds(const RegisterRow& row);
    /// Whether a category's path holds the term; the text must outlive it, as the rows must.
    [[nodiscard]] bool findsCategory(std::string_view path) { return isInShared(path); }

private:
    /// The answer for a text that many rows share.
    bool isInShared(std::string_view text);
    [[nodiscard]] bool isInAmount(const Decimal& amount) const;

    std::string term_;
    CaseInsensitiveTerm anyCaseTerm_;
    bool mayBeAmount_ = false;
    /// What a term that is written as a number is made of, and its value.
    std::optional<std::string> digits_;
    std::optional<Decimal> value_;
    std::unordered_map<std::string_view, bool> answers_;
};

/// Answers for many rows whether a filter and a search let them be seen. The rows must outlive it.
class RegisterRowTest {
public:
    RegisterRowTest(RegisterFilterTest filter, std::string_view searchText)
        : filter_(filter), search_(searchText) {}

    [[nodiscard]] bool shows(const RegisterRow& row) {
        return filter_.keeps(row) && (!search_.isActive() || search_.finds(row));
    }

private:
    RegisterFilterTest filter_;
    RegisterSearch search_;
};

} // namespace oakfen

#include "Oakfen/Views/Register/RegisterFilter.h"

#include <algorithm>

#include "Oakfen/Views/Components/AmountReading.h"
#include "OakfenCore/Exporters/Exporter.h"
#include "OakfenCore/Models/Money.h"

namespace oakfen {

std::string_view title(RegisterFilter value) noexcept {
    switch (value) {
    case RegisterFilter::all:
        return "All Transactions";
    case RegisterFilter::thisMonth:
        return "This Month";
    case RegisterFilter::last30:
        return "Last 30 Days";
    case RegisterFilter::last90:
        return "Last 90 Days";
    case RegisterFilter::thisYear:
        return "This Year";
    case RegisterFilter::uncleared:
        return "Uncleared";
    case RegisterFilter::uncategorized:
        return "Uncategorized";
    }
    return {};
}

RegisterFilterTest::RegisterFilterTest(RegisterFilter filter, Date now, const Calendar& calendar)
    : filter_(filter) {
    switch (filter) {
    case RegisterFilter::thisMonth: {
        const DateInterval month = interval(DateRangePreset::thisMonth, now, calendar);
        start_ = month.start;
        end_ = month.end;
        isEndKept_ = true;
        break;
    }
    case RegisterFilter::last30:
        start_ = calendar.addingDays(now, -30);
        break;
    case RegisterFilter::last90:
        start_ = calendar.addingDays(now, -90);
        break;
    case RegisterFilter::thisYear:
        start_ = calendar.startOfYear(now);
        end_ = calendar.date({.year = calendar.civil(now).year + 1});
        break;
    default:
        break;
    }
}

bool RegisterFilterTest::keeps(const RegisterRow& row) const {
    switch (filter_) {
    case RegisterFilter::all:
        return true;
    case RegisterFilter::uncleared:
        return row.cleared == ClearedState::uncleared;
    case RegisterFilter::uncategorized:
        return row.categoryName == uncategorizedName;
    case RegisterFilter::last30:
    case RegisterFilter::last90:
        return row.date >= start_;
    case RegisterFilter::thisMonth:
    case RegisterFilter::thisYear:
        return row.date >= start_ && (isEndKept_ ? row.date <= end_ : row.date < end_);
    }
    return true;
}

namespace {

/// The digits and the point of an amount as a register shows it, with two decimals.
std::string shownDigits(const Decimal& magnitude, std::string plain) {
    constexpr std::size_t decimals = 2;
    std::size_t point = plain.find('.');
    if (point != std::string::npos && plain.size() - point - 1 > decimals) {
        plain = Exporter::plain(magnitude.rounded(decimals, RoundingMode::plain));
        point = plain.find('.');
    }
    if (point == std::string::npos) {
        point = plain.size();
        plain += '.';
    }
    plain.append(point + 1 + decimals - plain.size(), '0');
    return plain;
}

} // namespace

RegisterSearch::RegisterSearch(std::string_view searchText)
    : term_(trimmingWhitespaces(searchText)), anyCaseTerm_(term_) {
    // Only digits and a point stand in a plain amount, so most terms need not look there.
    mayBeAmount_ = std::ranges::all_of(term_, [](char character) {
        return (character >= '0' && character <= '9') || character == '.';
    });
    if (isActive()) {
        const NumberPunctuation punctuation = NumberPunctuation::user();
        digits_ = amountDigits(term_, punctuation);
        value_ = digits_ ? readAmount(term_, punctuation).value : std::nullopt;
    }
}

bool RegisterSearch::finds(const RegisterRow& row) {
    return isInShared(row.payee) || isInShared(row.categoryName) || anyCaseTerm_.isIn(row.memo) ||
           row.checkNumber.find(term_) != std::string::npos ||
           std::ranges::any_of(row.tags, [this](const auto& tag) { return isInShared(tag); }) ||
           isInAmount(row.amount);
}

bool RegisterSearch::isInAmount(const Decimal& amount) const {
    if (!mayBeAmount_ && !digits_) {
        return false;
    }
    const Decimal magnitude = amount.magnitude();
    const std::string plain = Exporter::plain(magnitude);
    if (mayBeAmount_ && plain.find(term_) != std::string::npos) {
        return true;
    }
    return digits_ && (magnitude == value_ ||
                       shownDigits(magnitude, plain).find(*digits_) != std::string::npos);
}

bool RegisterSearch::isInShared(std::string_view text) {
    const auto [answer, isNew] = answers_.try_emplace(text, false);
    if (isNew) {
        answer->second = anyCaseTerm_.isIn(text);
    }
    return answer->second;
}

} // namespace oakfen

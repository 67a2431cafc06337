#include "OakfenCore/Support/Text/Formatting.h"

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <unicode/currunit.h>
#include <unicode/numberformatter.h>
#include <unicode/ucurr.h>
#include <unicode/uenum.h>
#include <utility>

#include "OakfenCore/Support/Text/ICUText.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {
namespace {

using icu::number::LocalizedNumberFormatter;
using icu::number::Precision;
using icu::number::UnlocalizedNumberFormatter;

constexpr int mostCompactDigits = 3;
constexpr int mostFractionDigits = 128;

enum class Style { currency, compactCurrency, number, percent };

/// What a formatter was made for; the currency is empty where none is shown.
struct FormatterKey {
    std::uint64_t localeGeneration = 0;
    Style style = Style::number;
    std::string currency;
    int fractionDigits = 0;

    friend auto operator<=>(const FormatterKey&, const FormatterKey&) = default;
};

bool isCurrencyCode(std::string_view code) {
    return code.size() == 3 && std::all_of(code.begin(), code.end(), isASCIILetter);
}

icu::UnicodeString currencyISOCode(std::string_view code) {
    return icu::UnicodeString::fromUTF8(stringPiece(code));
}

UnlocalizedNumberFormatter styled(const FormatterKey& key) {
    auto formatter = icu::number::NumberFormatter::with().roundingMode(UNUM_ROUND_HALFUP);
    if (key.style == Style::percent) {
        formatter = formatter.unit(icu::NoUnit::percent()).scale(icu::number::Scale::powerOfTen(2));
    }
    if (!key.currency.empty()) {
        UErrorCode status = U_ZERO_ERROR;
        formatter = formatter.unit(
            icu::CurrencyUnit(currencyISOCode(key.currency).getTerminatedBuffer(), status));
    }
    if (key.style == Style::compactCurrency) {
        return formatter.notation(icu::number::Notation::compactShort())
            .precision(Precision::maxSignificantDigits(mostCompactDigits));
    }
    if (!key.currency.empty()) {
        return formatter.precision(Precision::currency(UCURR_USAGE_STANDARD));
    }
    return formatter.precision(Precision::fixedFraction(key.fractionDigits));
}

/// Formatters take long to make and can be used by all threads at once, so each is made once.
std::shared_ptr<const LocalizedNumberFormatter> formatterFor(const FormatterKey& key) {
    static std::mutex mutex;
    static std::map<FormatterKey, std::shared_ptr<const LocalizedNumberFormatter>> formatters;
    const std::scoped_lock lock(mutex);
    auto& formatter = formatters[key];
    if (formatter == nullptr) {
        formatter = std::make_shared<const LocalizedNumberFormatter>(
            styled(key).locale(icu::Locale(userLocales().money.c_str())));
    }
    return formatter;
}

std::string formatted(const Decimal& value, const FormatterKey& key) {
    // The decimal's own digits: a binary number would round some of them.
    const std::string digits = value.toString();
    UErrorCode status = U_ZERO_ERROR;
    const auto result = formatterFor(key)->formatDecimal(digits, status);
    const icu::UnicodeString text = result.toTempString(status);
    return U_SUCCESS(status) ? utf8(text) : digits;
}

/// The key of a style of money; a code that can't be a currency's gives a bare number.
FormatterKey moneyKey(Style style, std::string_view currencyCode) {
    const bool isUsable = isCurrencyCode(currencyCode);
    return {.localeGeneration = userLocaleGeneration(),
            .style = style,
            .currency = isUsable ? std::string(currencyCode) : std::string(),
            .fractionDigits = 2};
}

} // namespace

std::string localeCurrencyCode() {
    char16_t buffer[4] = {};
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length = ucurr_forLocale(userLocales().money.c_str(), buffer, 4, &status);
    return U_SUCCESS(status) && length == 3 ? utf8(icu::UnicodeString(buffer, length)) : "CAD";
}

std::string currencyName(std::string_view currencyCode) {
    if (!isCurrencyCode(currencyCode)) {
        return {};
    }
    icu::UnicodeString code = currencyISOCode(currencyCode);
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    const char16_t* name = ucurr_getName(code.getTerminatedBuffer(), userLocales().money.c_str(),
                                         UCURR_LONG_NAME, nullptr, &length, &status);
    // For want of a name ICU hands the code back.
    const icu::UnicodeString text(name, length);
    return U_SUCCESS(status) && text != code ? utf8(text) : std::string();
}

const std::vector<std::string>& currencyCodes() {
    static const std::vector<std::string> codes = [] {
        std::vector<std::string> result;
        UErrorCode status = U_ZERO_ERROR;
        const std::unique_ptr<UEnumeration, decltype(&uenum_close)> all(
            ucurr_openISOCurrencies(UCURR_COMMON | UCURR_NON_DEPRECATED, &status), &uenum_close);
        while (const char* code = uenum_next(all.get(), nullptr, &status)) {
            result.emplace_back(code);
        }
        std::sort(result.begin(), result.end());
        return result;
    }();
    return codes;
}

std::string currencyText(const Decimal& amount, std::string_view currencyCode) {
    return formatted(amount, moneyKey(Style::currency, currencyCode));
}

std::string compactCurrencyText(const Decimal& amount, std::string_view currencyCode) {
    return formatted(amount, moneyKey(Style::compactCurrency, currencyCode));
}

std::string numberText(const Decimal& value, int fractionDigits) {
    return formatted(value, {.localeGeneration = userLocaleGeneration(),
                             .style = Style::number,
                             .fractionDigits = std::clamp(fractionDigits, 0, mostFractionDigits)});
}

std::string countText(std::size_t count) {
    return numberText(Decimal(static_cast<std::int64_t>(count)), 0);
}

std::string percentText(double fraction, int fractionDigits) {
    UErrorCode status = U_ZERO_ERROR;
    const auto formatter =
        formatterFor({.localeGeneration = userLocaleGeneration(),
                      .style = Style::percent,
                      .fractionDigits = std::clamp(fractionDigits, 0, mostFractionDigits)});
    const auto result = formatter->formatDouble(fraction, status);
    return utf8(result.toTempString(status));
}

} // namespace oakfen

#include "Oakfen/Views/Components/AmountReading.h"

#include <algorithm>
#include <array>
#include <utility>

#include "Oakfen/Views/Components/Calculation.h"
#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Text/TypedText.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {

namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::string_view arabicDecimal = "\u066B";
constexpr std::string_view arabicGrouping = "\u066C";

char otherOf(char separator) {
    return separator == '.' ? ',' : '.';
}

/// Spells signs, blanks and separators in one way each.
std::string simplified(std::string_view entry, char decimal) {
    const std::array<std::pair<std::string_view, std::string>, 7> spellings{{
        {arabicDecimal, std::string(1, decimal)},
        {arabicGrouping, std::string(1, otherOf(decimal))},
        {"\u060C", ","},
        {"\u00D7", "*"},
        {"\u00F7", "/"},
        {"\u2019", " "}, // groups in some countries
        {"'", " "},
    }};
    std::string text = plainTyping(entry);
    for (const auto& [what, with] : spellings) {
        text = replacingAll(text, what, with);
    }
    return std::string(trimmingWhitespaces(text));
}

/// Whether digits stand on both sides of a part of the text, with or without blanks.
bool isBetweenDigits(std::string_view text, std::size_t start, std::size_t end) {
    const std::string_view before = trimmingWhitespaces(text.substr(0, start));
    const std::string_view after = trimmingWhitespaces(text.substr(end));
    return !before.empty() && isASCIIDigit(before.back()) && !after.empty() &&
           isASCIIDigit(after.front());
}

/// Without currencies' signs and the letters that belong to them: "CA$", "$US", "$ US".
std::string withoutSigns(std::string text) {
    constexpr std::size_t mostLetters = 3;
    for (std::size_t at = text.find('$'); at != std::string::npos; at = text.find('$', at)) {
        std::size_t start = at;
        while (start > 0 && at - start < mostLetters && isASCIILetter(text[start - 1])) {
            --start;
        }
        std::size_t end = at + 1;
        const std::size_t letters = end < text.size() && text[end] == ' ' ? end + 1 : end;
        if (letters < text.size() && isASCIILetter(text[letters])) {
            end = letters;
            while (end < text.size() && end - letters < mostLetters && isASCIILetter(text[end])) {
                ++end;
            }
        }
        if (isBetweenDigits(text, start, end)) {
            at = end; // "5€50": without it the amount would be another
            continue;
        }
        text.erase(start, end - start);
        at = start;
    }
    return std::string(trimmingWhitespaces(text));
}

bool isCurrencyCode(std::string_view text) {
    return std::ranges::all_of(text, isASCIILetter) &&
           std::ranges::binary_search(currencyCodes(), uppercased(text));
}

/// Without a name or code of a currency at either end of the number.
std::string withoutCurrencyNames(const std::string& text, std::string_view localName) {
    constexpr std::size_t codeLength = 3;
    const std::size_t start = text.find_first_not_of("+-( ");
    if (start == std::string::npos) {
        return text;
    }
    const std::size_t end = text.find_last_not_of("-) ") + 1;
    std::string_view number = std::string_view(text).substr(start, end - start);
    if (!localName.empty() && number.starts_with(localName)) {
        number.remove_prefix(localName.size());
        number.remove_prefix(number.starts_with(". ") ? 1 : 0);
    } else if (number.size() > codeLength && isCurrencyCode(number.substr(0, codeLength))) {
        number.remove_prefix(codeLength);
    }
    if (const std::string withPoint = std::string(localName) + ".";
        !localName.empty() && number.ends_with(withPoint)) {
        number.remove_suffix(withPoint.size());
    } else if (!localName.empty() && number.ends_with(localName)) {
        number.remove_suffix(localName.size());
    } else if (number.size() > codeLength &&
               isCurrencyCode(number.substr(number.size() - codeLength))) {
        number.remove_suffix(codeLength);
    }
    return text.substr(0, start) + std::string(trimmingWhitespaces(number)) + text.substr(end);
}

bool isOneNumber(std::string_view text) {
    return !text.empty() && text.find_first_of("+-*/()") == std::string_view::npos;
}

/// Without the dash that stands for no cents: "20.–".
std::string withoutDashForCents(std::string text) {
    const std::size_t size = text.size();
    const bool hasDash = size > 2 && text[size - 1] == '-' &&
                         (text[size - 2] == '.' || text[size - 2] == ',') &&
                         isASCIIDigit(text[size - 3]);
    if (hasDash) {
        text.resize(size - 2);
    }
    return text;
}

/// A minus after the number and brackets around it, as statements write them, moved to the front.
std::string withLeadingMinus(const std::string& text) {
    if (text.size() > 2 && text.front() == '(' && text.back() == ')') {
        const std::string inner = text.substr(1, text.size() - 2);
        return isOneNumber(inner) ? "-" + inner : text;
    }
    if (text.size() > 1 && text.back() == '-') {
        const std::string number = text.substr(0, text.size() - 1);
        return isOneNumber(number) ? "-" + number : text;
    }
    return text;
}

/// "(-12)", of which nobody can tell whether it is meant as a negative amount or as the negative of
/// one.
bool isNegativeTwice(std::string_view text) {
    return text.starts_with("(-") && text.ends_with(')') &&
           isOneNumber(text.substr(2, text.size() - 3));
}

/// The text beside the digits of an amount in the currency of the place.
std::string localCurrencyName(char decimal) {
    const std::string sample = simplified(currencyText(Decimal(1), localeCurrencyCode()), decimal);
    const std::size_t first = sample.find_first_of(digits);
    if (first == std::string::npos) {
        return {};
    }
    const std::size_t last = sample.find_last_of(digits);
    const std::string beside = sample.substr(0, first) + sample.substr(last + 1);
    const std::string_view name = trimmingWhitespaces(beside);
    if (name.find('$') != std::string_view::npos) {
        return {};
    }
    // "kr." is typed without its point, too.
    return std::string(name.ends_with('.') ? name.substr(0, name.size() - 1) : name);
}

std::string exampleAmount() {
    return numberText(Decimal::cents(123450), 2);
}

} // namespace

NumberPunctuation NumberPunctuation::user() {
    // The Arabic separators are read as a point and a comma.
    const std::string sample = simplified(numberText(Decimal(11111), 1), '.');
    NumberPunctuation punctuation;
    const std::size_t last = sample.find_last_of(digits);
    if (last != std::string::npos && last > 0 && sample[last - 1] == ',') {
        punctuation.decimal = ',';
    }
    const char other = otherOf(punctuation.decimal);
    punctuation.grouping = sample.find(other) == std::string::npos ? ' ' : other;
    punctuation.currency = localCurrencyName(punctuation.decimal);
    return punctuation;
}

AmountReading readAmount(std::string_view text, const NumberPunctuation& punctuation) {
    const std::string plain = simplified(text, punctuation.decimal);
    const std::string entry = withLeadingMinus(
        withoutDashForCents(withoutCurrencyNames(withoutSigns(plain), punctuation.currency)));
    if (entry.empty()) {
        return {.explanation = "Enter an amount, for example " + exampleAmount() + "."};
    }
    const auto value = isNegativeTwice(entry)
                           ? std::nullopt
                           : calculate(entry, punctuation.decimal, punctuation.grouping);
    if (!value) {
        return {.explanation = "“" + std::string(trimmingWhitespacesAndNewlines(text)) +
                               "” isn’t an amount. Enter a number, for example " + exampleAmount() +
                               ", or a sum such as " + exampleCalculation() + "."};
    }
    if (value->isNaN()) {
        return {.explanation = isOneNumber(entry.substr(entry.front() == '-' ? 1 : 0))
                                   ? "This amount is too large."
                                   : "This calculation has no result."};
    }
    return {.value = value};
}

std::optional<std::string> amountDigits(std::string_view text,
                                        const NumberPunctuation& punctuation) {
    std::string number;
    for (const char character : withoutSigns(simplified(text, punctuation.decimal))) {
        if (character == punctuation.grouping) {
            continue;
        }
        const bool isPoint = character == punctuation.decimal;
        if (!isASCIIDigit(character) && (!isPoint || number.find('.') != std::string::npos)) {
            return std::nullopt;
        }
        number += isPoint ? '.' : character;
    }
    return std::ranges::any_of(number, isASCIIDigit) ? std::optional(number) : std::nullopt;
}

std::string exampleCalculation() {
    return numberText(Decimal::cents(1250), 2) + "+3*2";
}

} // namespace oakfen

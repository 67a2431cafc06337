#include "OakfenCore/Importers/AmountParser.h"

#include <algorithm>
#include <string>

#include "OakfenCore/Importers/Characters.h"
#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen::AmountParser {

namespace {

/// The digits, points, commas and minus signs of the text: currency signs, letters, spaces and
/// apostrophes between thousands all go.
std::string filtered(std::string_view text) {
    std::string kept;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char letter = text[index];
        const bool wanted = isASCIIDigit(letter) || letter == '.' || letter == ',' || letter == '-';
        if (wanted && isWholeCharacter(text, index)) {
            kept.push_back(letter);
        }
    }
    return kept;
}

/// Turns "1234,56" into "1234.56" and drops the commas between thousands. A comma with any other
/// number of digits behind it, or next to a point, is taken for a thousands mark.
void settleCommas(std::string& digits) {
    const std::size_t comma = digits.rfind(',');
    if (comma != std::string::npos && digits.find('.') == std::string::npos &&
        digits.size() - comma == 3) {
        digits[comma] = '.';
    }
    std::erase(digits, ',');
}

bool endsIgnoringCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() &&
           equalsIgnoringASCIICase(text.substr(text.size() - ending.size()), ending);
}

} // namespace

std::optional<Decimal> parse(std::string_view text) {
    text = trimmingWhitespaces(text);
    if (text.empty()) {
        return std::nullopt;
    }
    bool negative = false;
    if (text.size() >= 2 && text.front() == '(' && text.back() == ')' &&
        isWholeCharacter(text, 0)) {
        text = text.substr(1, text.size() - 2);
        negative = true;
    }
    if (text.ends_with('-')) {
        text.remove_suffix(1);
        negative = true;
    }
    if (endsIgnoringCase(text, "DR")) {
        text.remove_suffix(2);
        negative = true;
    }
    if (endsIgnoringCase(text, "CR")) {
        text.remove_suffix(2);
    }

    std::string digits = filtered(text);
    if (digits.starts_with('-')) {
        digits.erase(0, 1);
        negative = !negative;
    }
    settleCommas(digits);
    const std::optional<Decimal> value = Decimal::parse(digits);
    return value && negative ? -*value : value;
}

} // namespace oakfen::AmountParser

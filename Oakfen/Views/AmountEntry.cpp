#include "Oakfen/Views/AmountEntry.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "OakfenCore/Support/Formatting.h"
#include "OakfenCore/Support/Text.h"

namespace oakfen {

NumberPunctuation NumberPunctuation::user() {
    const std::string sample = numberText(Decimal(11111), 1);
    const std::size_t last = sample.find_last_of("0123456789");
    NumberPunctuation punctuation{.decimal = '.', .grouping = ""};
    if (last != std::string::npos && last > 0) {
        punctuation.decimal = sample[last - 1] == ',' ? ',' : '.';
    }
    const char other = punctuation.decimal == '.' ? ',' : '.';
    if (sample.find(other) != std::string::npos) {
        punctuation.grouping = other;
    }
    return punctuation;
}

namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isLetter(char character) {
    return std::isalpha(static_cast<unsigned char>(character)) != 0;
}

void replaceAll(std::string& text, std::string_view what, std::string_view with) {
    for (std::size_t at = text.find(what); at != std::string::npos;
         at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
}

/// Spells signs, blanks and currencies in one way each.
std::string simplified(std::string_view entry) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 15> spellings{{
        {"\u2212", "-"},
        {"\u2013", "-"},
        {"\u00D7", "*"},
        {"\u00F7", "/"},
        {"\u2019", " "}, // groups in some countries
        {"'", " "},
        {"\u00A0", " "}, // blanks that don't break
        {"\u202F", " "},
        {"\u2009", " "},
        {"\t", " "},
        {"\n", " "},
        {"\r", " "},
        {"\u20AC", "$"},
        {"\u00A3", "$"},
        {"\u00A5", "$"},
    }};
    std::string text(entry);
    for (const auto& [what, with] : spellings) {
        replaceAll(text, what, with);
    }
    return std::string(trimmingWhitespaces(text));
}

/// Without signs of currencies ("$", "CA$") and without one currency's code at either end.
std::string withoutCurrency(std::string text) {
    for (std::size_t at = text.find('$'); at != std::string::npos; at = text.find('$', at)) {
        std::size_t start = at;
        while (start > 0 && at - start < 3 && isLetter(text[start - 1])) {
            --start;
        }
        text.erase(start, at + 1 - start);
        at = start;
    }
    const auto isCode = [](std::string_view letters) {
        return std::ranges::all_of(letters, isLetter) &&
               std::ranges::binary_search(currencyCodes(), uppercased(letters));
    };
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    if (text.size() > sign + 3 && isCode(std::string_view(text).substr(sign, 3))) {
        text.erase(sign, 3);
    }
    if (text.size() > 3 && isCode(std::string_view(text).substr(text.size() - 3))) {
        text.erase(text.size() - 3);
    }
    return std::string(trimmingWhitespaces(text));
}

/// The number as plain digits and a point if it is punctuated that way. Blanks may set groups
/// apart in every country.
std::optional<std::string> plainNumber(std::string_view number, char decimal, char grouping) {
    const std::size_t point = number.find(decimal);
    const std::string_view whole = number.substr(0, point);
    const std::string_view fraction =
        point == std::string_view::npos ? std::string_view() : number.substr(point + 1);
    if (!std::ranges::all_of(fraction, isDigit)) {
        return std::nullopt;
    }
    std::string plain;
    std::size_t groupLength = 0;
    bool isGrouped = false;
    for (const char character : whole) {
        if (isDigit(character)) {
            plain += character;
            ++groupLength;
            continue;
        }
        const bool fits =
            isGrouped ? groupLength == 2 || groupLength == 3 : groupLength >= 1 && groupLength <= 3;
        if ((character != ' ' && character != grouping) || !fits) {
            return std::nullopt;
        }
        isGrouped = true;
        groupLength = 0;
    }
    if (isGrouped && groupLength != 3) {
        return std::nullopt;
    }
    if (!fraction.empty()) {
        plain += '.';
        plain += fraction;
    }
    return plain;
}

std::optional<Decimal> readNumber(std::string_view number, const NumberPunctuation& punctuation) {
    const char other = punctuation.decimal == '.' ? ',' : '.';
    const char grouping = punctuation.grouping.empty() ? ' ' : punctuation.grouping.front();
    const std::array<std::pair<char, char>, 3> attempts{{
        {punctuation.decimal, grouping},
        {other, punctuation.decimal},
        {punctuation.decimal, other},
    }};
    for (const auto& [decimal, group] : attempts) {
        if (const auto plain = plainNumber(number, decimal, group)) {
            return Decimal::parse(*plain);
        }
    }
    return std::nullopt;
}

/// Sums of products of signed numbers.
class Calculation {
public:
    Calculation(std::string_view text, const NumberPunctuation& punctuation)
        : text_(text), punctuation_(punctuation) {}

    /// The result, if the text holds a calculation and nothing else.
    std::optional<Decimal> run() {
        auto total = product();
        while (total && (peek() == '+' || peek() == '-')) {
            const bool adds = take() == '+';
            const auto next = product();
            total = next ? std::optional(adds ? *total + *next : *total - *next) : std::nullopt;
        }
        return position_ == text_.size() ? total : std::nullopt;
    }

private:
    std::optional<Decimal> product() {
        auto result = factor();
        while (result && (peek() == '*' || peek() == '/')) {
            const bool multiplies = take() == '*';
            const auto next = factor();
            result =
                next ? std::optional(multiplies ? *result * *next : *result / *next) : std::nullopt;
        }
        return result;
    }

    std::optional<Decimal> factor() {
        skipBlanks();
        const bool isSigned = peek() == '-' || peek() == '+';
        const bool isNegative = isSigned && take() == '-';
        skipBlanks();
        const std::size_t start = position_;
        while (isDigit(peek()) || peek() == '.' || peek() == ',' || peek() == ' ') {
            take();
        }
        const auto number =
            readNumber(trimmingWhitespaces(text_.substr(start, position_ - start)), punctuation_);
        return number && isNegative ? std::optional(-*number) : number;
    }

    void skipBlanks() {
        while (peek() == ' ') {
            take();
        }
    }

    [[nodiscard]] char peek() const { return position_ < text_.size() ? text_[position_] : '\0'; }
    char take() { return text_[position_++]; }

    std::string_view text_;
    const NumberPunctuation& punctuation_;
    std::size_t position_ = 0;
};

bool isOneNumber(std::string_view text) {
    return !text.empty() && text.find_first_of("+-*/()") == std::string_view::npos;
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

} // namespace

AmountReading readAmount(std::string_view text, const NumberPunctuation& punctuation) {
    const std::string entry = withLeadingMinus(withoutCurrency(simplified(text)));
    if (entry.empty()) {
        return {.explanation =
                    "Enter an amount, for example " + numberText(Decimal::cents(123450), 2) + "."};
    }
    const auto value = Calculation(entry, punctuation).run();
    if (!value) {
        return {.explanation = "“" + std::string(trimmingWhitespacesAndNewlines(text)) +
                               "” isn’t an amount. Enter a number, for example " +
                               numberText(Decimal::cents(123450), 2) +
                               ", or a sum such as 12.50+3*2."};
    }
    if (value->isNaN()) {
        return {.explanation = "This calculation has no result."};
    }
    return {.value = value};
}

void AmountEntry::setValue(const Decimal& value) {
    value_ = value;
    show();
}

void AmountEntry::edit(std::string text) {
    text_ = std::move(text);
    explanation_.clear();
    value_ = shownValue_;
    if (text_ == shown_) {
        return;
    }
    AmountReading reading = readAmount(text_);
    explanation_ = std::move(reading.explanation);
    if (reading.value) {
        value_ = *reading.value;
    }
}

void AmountEntry::finishEditing() {
    if (explanation_.empty()) {
        show();
    }
}

void AmountEntry::show() {
    shown_ = numberText(value_, 2);
    shownValue_ = value_;
    text_ = shown_;
    explanation_.clear();
}

} // namespace oakfen

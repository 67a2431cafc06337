#include "Oakfen/Views/Components/Calculation.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "OakfenCore/Support/Text/Text.h"
#include "OakfenCore/Support/Text/TypedText.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {

namespace {

/// Parentheses within parentheses: more than a field for an amount has room for, yet few enough
/// for the stack, whatever is pasted.
constexpr int greatestDepth = 200;

/// The digits of a whole number without the separators of its groups; nothing when it isn't
/// grouped as people do it, by three digits or by two and then three.
std::optional<std::string> ungrouped(std::string_view whole, char grouping) {
    std::string plain;
    std::size_t groupLength = 0;
    bool isGrouped = false;
    for (const char character : whole) {
        if (isASCIIDigit(character)) {
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
    // No group stands after a lone zero: "0.500" is a half also where the point sets groups apart.
    const bool isWellGrouped = !isGrouped || (groupLength == 3 && !plain.starts_with('0'));
    return isWellGrouped ? std::optional(plain) : std::nullopt;
}

/// The number as plain digits and a point if it is punctuated that way.
std::optional<std::string> plainNumber(std::string_view number, char decimal, char grouping) {
    const std::size_t point = number.find(decimal);
    const std::string_view fraction =
        point == std::string_view::npos ? std::string_view() : number.substr(point + 1);
    auto plain = ungrouped(number.substr(0, point), grouping);
    if (!plain || !std::ranges::all_of(fraction, isASCIIDigit)) {
        return std::nullopt;
    }
    if (!fraction.empty()) {
        *plain += '.';
        *plain += fraction;
    }
    return plain;
}

/// A product, and whether it was one percentage and nothing else.
struct Term {
    Decimal value;
    bool isPercentage = false;
};

/// Walks through the text once, from left to right.
class Calculation {
public:
    Calculation(std::string_view text, char decimal, char grouping)
        : text_(text), decimal_(decimal), grouping_(grouping) {}

    /// The result, if the text holds a calculation and nothing else.
    std::optional<Decimal> run() {
        const auto total = sum();
        return position_ == text_.size() ? total : std::nullopt;
    }

private:
    std::optional<Decimal> sum() {
        const auto first = product();
        auto total = first ? std::optional(first->value) : std::nullopt;
        while (total && (peek() == '+' || peek() == '-')) {
            const bool adds = take() == '+';
            const auto next = product();
            if (!next) {
                return std::nullopt;
            }
            const Decimal change = next->isPercentage ? *total * next->value : next->value;
            total = adds ? *total + change : *total - change;
        }
        return total;
    }

    std::optional<Term> product() {
        auto result = factor();
        while (result && (peek() == '*' || peek() == '/')) {
            const bool multiplies = take() == '*';
            const auto next = factor();
            if (!next) {
                return std::nullopt;
            }
            result =
                Term{multiplies ? result->value * next->value : result->value / next->value, false};
        }
        return result;
    }

    std::optional<Term> factor() {
        skipBlanks();
        const bool isSigned = peek() == '-' || peek() == '+';
        const bool isNegative = isSigned && take() == '-';
        skipBlanks();
        const auto magnitude = peek() == '(' ? sumInParentheses() : number();
        if (!magnitude) {
            return std::nullopt;
        }
        const Decimal value = isNegative ? -*magnitude : *magnitude;
        if (peek() != '%') {
            return Term{value, false};
        }
        take();
        skipBlanks();
        return Term{value / Decimal(100), true};
    }

    std::optional<Decimal> sumInParentheses() {
        if (depth_ == greatestDepth) {
            return std::nullopt;
        }
        take();
        ++depth_;
        const auto inner = sum();
        --depth_;
        if (!inner || peek() != ')') {
            return std::nullopt;
        }
        take();
        skipBlanks();
        return inner;
    }

    std::optional<Decimal> number() {
        const std::size_t start = position_;
        while (isASCIIDigit(peek()) || peek() == '.' || peek() == ',' || peek() == ' ') {
            take();
        }
        return number(trimmingWhitespaces(text_.substr(start, position_ - start)));
    }

    [[nodiscard]] std::optional<Decimal> number(std::string_view text) const {
        const char other = decimal_ == '.' ? ',' : '.';
        const std::array<std::pair<char, char>, 3> attempts{{
            {decimal_, grouping_},
            {other, decimal_},
            {decimal_, other},
        }};
        for (const auto& [decimal, grouping] : attempts) {
            const auto plain = plainNumber(text, decimal, grouping);
            if (plain && !plain->empty()) {
                return Decimal::parse(*plain).value_or(Decimal::nan());
            }
        }
        return std::nullopt;
    }

    void skipBlanks() {
        while (peek() == ' ') {
            take();
        }
    }

    [[nodiscard]] char peek() const { return position_ < text_.size() ? text_[position_] : '\0'; }
    char take() { return text_[position_++]; }

    std::string_view text_;
    char decimal_;
    char grouping_;
    std::size_t position_ = 0;
    int depth_ = 0;
};

} // namespace

std::optional<Decimal> calculate(std::string_view text, char decimal, char grouping) {
    return Calculation(text, decimal, grouping).run();
}

} // namespace oakfen

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "OakfenCore/Support/Number/Decimal.h"
#include "OakfenCore/Support/Number/DecimalDigits.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {
namespace {

/// Exponents in texts stop counting here; no text is long enough to bring such a one into range.
constexpr std::int64_t exponentLimit = 1'000'000'000'000'000'000;

/// Takes the digits of a number one after the other and keeps as many as count.
class DigitCollector {
public:
    /// Takes one digit; one behind the point makes the number no larger.
    void take(char digit, bool isBehindPoint) noexcept {
        const int value = digit - '0';
        if (isBehindPoint) {
            --exponent_;
        }
        if (taken_ < digits::precision) {
            leading_ = leading_ * 10 + static_cast<UInt128>(value);
            taken_ += leading_ != 0 ? 1 : 0;
            return;
        }
        if (taken_ == digits::precision) {
            next_ = value;
            ++taken_;
        }
        ++exponent_;
    }

    [[nodiscard]] std::optional<Decimal> number(bool isNegative,
                                                std::int64_t exponent) const noexcept {
        const Decimal value = digits::assemble(isNegative, leading_, next_, exponent_ + exponent);
        return value.isNaN() ? std::nullopt : std::optional(value);
    }

private:
    UInt128 leading_ = 0;
    int taken_ = 0; // significant digits, the one that rounds included
    int next_ = 0;
    std::int64_t exponent_ = 0;
};

/// The exponent of a JSON number, "e" included; nothing if it isn't one.
std::optional<std::int64_t> parseExponent(std::string_view text) noexcept {
    text.remove_prefix(1);
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    if (text.empty() || !std::all_of(text.begin(), text.end(), isASCIIDigit)) {
        return std::nullopt;
    }
    std::int64_t exponent = 0;
    for (const char digit : text) {
        exponent = std::min(exponent * 10 + (digit - '0'), exponentLimit / 10);
    }
    return isNegative ? -exponent : exponent;
}

/// Appends the digits and returns how many there are.
void appendDigits(std::string& text, UInt128 value) {
    constexpr int blockDigits = 19;
    constexpr UInt128 block = digits::powerOfTen(blockDigits);
    std::array<char, blockDigits + 1> buffer{};
    const bool isLong = value >= block;
    if (isLong) {
        appendDigits(text, value / block);
    }
    const auto low = static_cast<std::uint64_t>(value % block);
    const auto end = std::to_chars(buffer.begin(), buffer.end(), low).ptr;
    const auto count = static_cast<std::size_t>(end - buffer.begin());
    if (isLong) {
        text.append(blockDigits - count, '0');
    }
    text.append(buffer.data(), count);
}

} // namespace

std::optional<Decimal> Decimal::parse(std::string_view text) noexcept {
    const bool isNegative = text.starts_with('-');
    if (isNegative) {
        text.remove_prefix(1);
    }
    DigitCollector collector;
    bool hasPoint = false;
    bool hasDigit = false;
    for (const char character : text) {
        if (character == '.' && !hasPoint) {
            hasPoint = true;
        } else if (isASCIIDigit(character)) {
            hasDigit = true;
            collector.take(character, hasPoint);
        } else {
            return std::nullopt;
        }
    }
    return hasDigit ? collector.number(isNegative, 0) : std::nullopt;
}

std::optional<Decimal> Decimal::parseJSONNumber(std::string_view text) noexcept {
    const std::size_t mark = std::min(text.find_first_of("eE"), text.size());
    std::int64_t exponent = 0;
    if (mark < text.size()) {
        const auto parsed = parseExponent(text.substr(mark));
        if (!parsed) {
            return std::nullopt;
        }
        exponent = *parsed;
        text = text.substr(0, mark);
    }
    const bool isNegative = text.starts_with('-');
    if (isNegative) {
        text.remove_prefix(1);
    }
    const std::size_t point = std::min(text.find('.'), text.size());
    const bool hasNeedlessZero = point > 1 && text.front() == '0';
    if (point == 0 || point + 1 == text.size() || hasNeedlessZero) {
        return std::nullopt;
    }
    DigitCollector collector;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (isASCIIDigit(text[index])) {
            collector.take(text[index], index > point);
        } else if (index != point) {
            return std::nullopt;
        }
    }
    return collector.number(isNegative, exponent);
}

std::string Decimal::toString() const {
    std::string text;
    appendTo(text);
    return text;
}

void Decimal::appendTo(std::string& text) const {
    if (isNaN()) {
        text += "NaN";
        return;
    }
    if (coefficient_ < 0) {
        text += '-';
    }
    const std::size_t start = text.size();
    appendDigits(text, digits::magnitude(coefficient_));
    if (exponent_ >= 0) {
        text.append(static_cast<std::size_t>(exponent_), '0');
        return;
    }
    const auto decimals = static_cast<std::size_t>(-exponent_);
    const std::size_t count = text.size() - start;
    if (count <= decimals) {
        text.insert(start, decimals + 1 - count, '0');
    }
    text.insert(text.size() - decimals, 1, '.');
}

double Decimal::doubleValue() const noexcept {
    if (isNaN()) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    // Both sides are exact up to here, so the one division or multiplication rounds correctly.
    constexpr std::int64_t exactInteger = std::int64_t{1} << 53U;
    constexpr std::array<double, 16> exactPowers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const auto steps = static_cast<std::size_t>(exponent_ < 0 ? -exponent_ : exponent_);
    if (coefficient_ <= exactInteger && coefficient_ >= -exactInteger &&
        steps < exactPowers.size()) {
        const auto value = static_cast<double>(static_cast<std::int64_t>(coefficient_));
        return exponent_ < 0 ? value / exactPowers[steps] : value * exactPowers[steps];
    }
    std::array<char, 64> buffer{};
    std::string text = coefficient_ < 0 ? "-" : "";
    appendDigits(text, digits::magnitude(coefficient_));
    text += 'e';
    const auto end = std::to_chars(buffer.begin(), buffer.end(), int{exponent_}).ptr;
    text.append(buffer.data(), static_cast<std::size_t>(end - buffer.begin()));
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

} // namespace oakfen

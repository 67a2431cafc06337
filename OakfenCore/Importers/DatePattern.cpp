#include "OakfenCore/Importers/DatePattern.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>

#include "OakfenCore/Importers/Characters.h"
#include "OakfenCore/Support/Values/ASCII.h"

namespace oakfen {

namespace {

constexpr std::array<std::string_view, 12> monthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December",
};

/// Years of two digits: 00 to 49 are of this century, the others of the last.
constexpr int firstYearOfLastCentury = 50;

class PatternMatcher {
public:
    explicit PatternMatcher(std::string_view text) : rest_(text) {}

    std::optional<CivilTime> match(std::string_view pattern) {
        while (!pattern.empty()) {
            const std::size_t length = elementLength(pattern);
            if (!readElement(pattern.substr(0, length))) {
                return std::nullopt;
            }
            pattern.remove_prefix(length);
        }
        return rest_.empty() && isReal() ? std::optional(time_) : std::nullopt;
    }

private:
    /// One field, one quoted text with its quotes, or one other character.
    static std::size_t elementLength(std::string_view pattern) {
        const char first = pattern.front();
        if (first == '\'') {
            const std::size_t closing = pattern.find('\'', 1);
            return closing == std::string_view::npos ? pattern.size() : closing + 1;
        }
        if (!isASCIILetter(first)) {
            return 1;
        }
        return std::min(pattern.find_first_not_of(first), pattern.size());
    }

    bool readElement(std::string_view element) {
        if (element.front() == '\'') {
            return readLiteral(element.substr(1, element.size() - 2));
        }
        return isASCIILetter(element.front()) ? readField(element.front(), element.size())
                                              : readLiteral(element);
    }

    bool readLiteral(std::string_view literal) {
        if (!rest_.starts_with(literal)) {
            return false;
        }
        rest_.remove_prefix(literal.size());
        return true;
    }

    bool readField(char letter, std::size_t width) {
        const std::optional<int> value =
            letter == 'M' && width == 3 ? monthName() : number(width, width == 1 ? 2 : width);
        if (!value) {
            return false;
        }
        switch (letter) {
        case 'y':
            time_.year =
                width == 2 ? *value + (*value < firstYearOfLastCentury ? 2000 : 1900) : *value;
            return true;
        case 'M':
            time_.month = *value;
            return true;
        case 'd':
            time_.day = *value;
            return true;
        case 'H':
            time_.hour = *value;
            return true;
        case 'm':
            time_.minute = *value;
            return true;
        case 's':
            time_.second = *value;
            return true;
        default:
            return false;
        }
    }

    std::optional<int> number(std::size_t fewest, std::size_t most) {
        std::size_t count = 0;
        int value = 0;
        while (count < most && count < rest_.size() && isASCIIDigit(rest_[count])) {
            value = value * 10 + (rest_[count] - '0');
            ++count;
        }
        if (count < fewest) {
            return std::nullopt;
        }
        rest_.remove_prefix(count);
        return value;
    }

    std::optional<int> monthName() {
        constexpr std::size_t abbreviated = 3;
        for (std::size_t index = 0; index < monthNames.size(); ++index) {
            const std::string_view name = monthNames[index];
            for (const std::string_view form : {name, name.substr(0, abbreviated)}) {
                if (equalsIgnoringASCIICase(rest_.substr(0, form.size()), form)) {
                    rest_.remove_prefix(form.size());
                    return static_cast<int>(index) + 1;
                }
            }
        }
        return std::nullopt;
    }

    [[nodiscard]] bool isReal() const {
        const std::chrono::year_month_day day(
            std::chrono::year(time_.year), std::chrono::month(static_cast<unsigned>(time_.month)),
            std::chrono::day(static_cast<unsigned>(time_.day)));
        return time_.year >= 1 && day.ok() && time_.hour < 24 && time_.minute < 60 &&
               time_.second < 60;
    }

    std::string_view rest_;
    CivilTime time_;
};

} // namespace

std::optional<CivilTime> matchDatePattern(std::string_view text, std::string_view pattern) {
    return PatternMatcher(text).match(pattern);
}

} // namespace oakfen

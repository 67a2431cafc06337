#include <limits>
#include <map>
#include <memory>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>

#include "OakfenCore/Support/Text/Formatting.h"
#include "OakfenCore/Support/Text/ICUText.h"
#include "OakfenCore/Support/Text/MonthText.h"

namespace oakfen {
namespace {

/// A formatter that shows a local time handed to it as if it were UTC: the time zones are those of
/// `Calendar`, whose database is the system's, and not ICU's own.
std::unique_ptr<icu::SimpleDateFormat> makeFormatter(const char* fields) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale(userLocales().dates.c_str());
    const std::unique_ptr<icu::DateTimePatternGenerator> patterns(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status)) {
        return nullptr;
    }
    const icu::UnicodeString pattern = patterns->getBestPattern(fields, status);
    auto formatter = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
    auto calendar = std::make_unique<icu::GregorianCalendar>(*icu::TimeZone::getGMT(), status);
    calendar->setGregorianChange(-std::numeric_limits<double>::infinity(), status);
    if (U_FAILURE(status)) {
        return nullptr;
    }
    formatter->adoptCalendar(calendar.release());
    return formatter;
}

/// The calling thread's formatter for the fields and the present locale.
const icu::SimpleDateFormat* formatterFor(const char* fields) {
    thread_local std::map<std::string, std::unique_ptr<icu::SimpleDateFormat>> formatters;
    thread_local std::uint64_t generation = 0;
    if (generation != userLocaleGeneration()) {
        generation = userLocaleGeneration();
        formatters.clear();
    }
    const auto [place, isNew] = formatters.try_emplace(fields);
    if (isNew) {
        place->second = makeFormatter(fields);
    }
    return place->second.get();
}

std::string formatted(Date date, const Calendar& calendar, const char* fields) {
    const CivilTime civil = calendar.civil(date);
    const icu::SimpleDateFormat* formatter = formatterFor(fields);
    if (formatter == nullptr) {
        return std::to_string(civil.year) + '-' + std::to_string(civil.month) + '-' +
               std::to_string(civil.day);
    }
    constexpr double millisecondsPerSecond = 1000;
    const double asUTC = Calendar::utc().date(civil).secondsSince1970();
    icu::UnicodeString text;
    return utf8(formatter->format(asUTC * millisecondsPerSecond, text));
}

} // namespace

std::string numericDateText(Date date, const Calendar& calendar) {
    return formatted(date, calendar, "yMMdd");
}

std::string abbreviatedMonthDayText(Date date, const Calendar& calendar) {
    return formatted(date, calendar, "MMMd");
}

std::string abbreviatedDateText(Date date, const Calendar& calendar) {
    return formatted(date, calendar, "yMMMd");
}

std::string monthYearText(Date date, const Calendar& calendar) {
    return formatted(date, calendar, "yMMMM");
}

std::string abbreviatedMonthText(Date date, const Calendar& calendar) {
    return formatted(date, calendar, "LLL");
}

std::string abbreviatedMonthYearText(Date date, const Calendar& calendar) {
    return formatted(date, calendar, "yMMM");
}

std::string completeDateText(Date date, const Calendar& calendar) {
    return formatted(date, calendar, "yMMMMEEEEd");
}

std::string weekdayMonthDayText(Date date, const Calendar& calendar) {
    return formatted(date, calendar, "MMMMEEEEd");
}

} // namespace oakfen

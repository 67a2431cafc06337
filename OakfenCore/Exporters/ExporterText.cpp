#include "OakfenCore/Exporters/Exporter.h"

namespace oakfen::Exporter {

namespace {

/// The number with at least so many digits.
std::string padded(int number, std::size_t width) {
    const bool isNegative = number < 0;
    std::string digits = std::to_string(number).substr(isNegative ? 1 : 0);
    if (digits.size() < width) {
        digits.insert(0, width - digits.size(), '0');
    }
    return isNegative ? "-" + digits : digits;
}

} // namespace

std::string plain(const Decimal& value) {
    return value.toCents().toString();
}

std::string isoDate(Date date, const Calendar& calendar) {
    const CivilTime civil = calendar.civil(date);
    return padded(civil.year, 4) + "-" + padded(civil.month, 2) + "-" + padded(civil.day, 2);
}

std::string qifDate(Date date, const Calendar& calendar) {
    const CivilTime civil = calendar.civil(date);
    return padded(civil.month, 2) + "/" + padded(civil.day, 2) + "/" + padded(civil.year, 4);
}

} // namespace oakfen::Exporter

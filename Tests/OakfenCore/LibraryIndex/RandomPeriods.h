#pragma once

#include <array>
#include <cmath>
#include <random>
#include <vector>

#include "OakfenCore/Support/Time/Calendar.h"
#include "Tests/Generators/RandomLibrary.h"
#include "Tests/OakfenCore/LibraryIndex/UnsoundLibrary.h"

/// Documents and intervals for properties of figures over periods.
namespace oakfen::testing {

/// The instant in whose time the documents lie.
inline constexpr Date periodsNow{796000000.0};

/// A calendar with daylight-saving time and a zone of half an hour.
inline const Calendar& periodsCalendar() {
    static const Calendar calendar = Calendar::inZone("America/St_Johns").value();
    return calendar;
}

/// An amount beside which a cent is too small to be held, or one that is that small.
inline Decimal absurdAmount(std::mt19937& random) {
    static const std::array amounts{Decimal::make(1, 37), Decimal::make(-1, 37),
                                    Decimal::make(3, 36), Decimal::cents(-1), Decimal::cents(40)};
    return amounts[random() % amounts.size()];
}

/// Documents from a seed: every other one with amounts whose sums depend on the order. Some entries
/// lie fractions of a second away from where they were.
inline Library randomDocument(unsigned seed) {
    const bool isAbsurd = seed % 2 == 0;
    Library library =
        isAbsurd ? RandomLibrary(seed).make(seed * 6U) : UnsoundLibrary(seed).make(seed * 6U);
    std::mt19937 random(seed);
    for (std::size_t index = 0; index < library.transactions.size(); ++index) {
        static constexpr std::array fractions{0.0, 0.0, 0.25, 0.999, 1e-6, -1e-6};
        Transaction& entry = library.transactions.edit(index);
        if (random() % 4 == 0) {
            entry.date = periodsCalendar().endOfMonth(entry.date);
        }
        entry.date = entry.date.adding(fractions[random() % fractions.size()]);
        if (isAbsurd) {
            entry.amount = absurdAmount(random);
            for (Split& split : entry.splits) {
                split.amount = absurdAmount(random);
            }
        }
    }
    return library;
}

/// Of every kind: all time, nothing, one instant, the wrong way round, a month, centuries; and some
/// that begin or end with an entry or the smallest step beside it.
inline std::vector<DateInterval> intervalsFor(const Library& library, unsigned seed) {
    const Date month = periodsCalendar().startOfMonth(Date{793000000});
    std::vector<DateInterval> intervals{
        {Date::distantPast(), Date::distantFuture()}, {Date{792000000}, Date{795000000}},
        {Date{799000000}, Date{798000000}},           {Date{900000000}, Date{910000000}},
        {Date{100000000}, Date{200000000}},           {Date{-5e9}, Date{800000000}},
        {month, periodsCalendar().endOfMonth(month)}};
    std::mt19937 random(seed);
    const auto boundary = [&] {
        const auto& rows = library.investmentTransactions;
        const Date date = rows.empty() || random() % 3 != 0
                              ? library.transactions[random() % library.transactions.size()].date
                              : rows[random() % rows.size()].date;
        const double away = random() % 2 == 0 ? -1e18 : 1e18;
        const double seconds = date.secondsSinceReference;
        return Date{random() % 2 == 0 ? seconds : std::nextafter(seconds, away)};
    };
    for (int count = 0; count < 6; ++count) {
        const Date start = boundary();
        intervals.push_back({start, count == 0 ? start : boundary()});
    }
    return intervals;
}

} // namespace oakfen::testing

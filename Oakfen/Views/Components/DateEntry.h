#pragma once

#include <optional>

#include "Oakfen/Views/Components/TypedEntry.h"
#include "OakfenCore/Platform/Clock.h"
#include "OakfenCore/Support/Time/Calendar.h"

namespace oakfen {

/// The order in which a locale writes the parts of a date.
enum class DateOrder { yearMonthDay, dayMonthYear, monthDayYear };

/// That of the user's locale.
[[nodiscard]] DateOrder userDateOrder();

/// The day that a typed text means, at the start of that day's clock. The parts are numbers in the
/// given order with anything but letters between them, or eight digits without. A year that is
/// left out is that of `shown`, and so is the month beside a lone day. A year of four digits may
/// come first in every order; one of two is the nearest of 1950 to 2049.
[[nodiscard]] std::optional<CivilTime> readDay(std::string_view text, DateOrder order,
                                               const CivilTime& shown);

/// How many days before (negative) or after the shown one a typed text means: a sign and a number.
[[nodiscard]] std::optional<int> readDayStep(std::string_view text);

/// The state of a field for a day. Keeps the time of day that the record had, and the whole
/// instant as long as, or as soon as, the day is the record's. Besides days it takes words ("t",
/// "today", "y", "yesterday") and steps from the day that it showed ("+7", "-3").
class DateEntry final : public TypedEntry {
public:
    /// Asks the clock, which must outlive the entry, what day is today.
    explicit DateEntry(const Clock& clock) : clock_(&clock), calendar_(clock.calendar()) { show(); }

    /// With the record’s time of day.
    [[nodiscard]] Date value() const { return value_; }
    /// Holds and shows the date of a record.
    void setValue(Date value);

    /// The day that the calendar calls the value.
    [[nodiscard]] CivilTime day() const { return calendar_.civil(value_); }
    /// The person chose a day elsewhere.
    void setDay(int year, int month, int dayOfMonth);
    /// To a day or the same day of a month before or after.
    void moveDays(int days);
    void moveMonths(int months);

private:
    [[nodiscard]] std::string valueText() const override;
    void rememberValue() override { shownValue_ = value_; }
    void restoreValue() override { value_ = shownValue_; }
    [[nodiscard]] std::string take(std::string_view text) override;

    /// The day that the text means in some way; nothing if it means none.
    [[nodiscard]] std::optional<CivilTime> meantDay(std::string_view text) const;
    /// The record's time of day on another day.
    [[nodiscard]] Date onDay(const CivilTime& day) const;
    /// Holds and shows the value, unless it lies past the times that a date can have.
    void moveTo(Date value);

    const Clock* clock_;
    Calendar calendar_;
    Date value_;
    Date shownValue_;
    /// As it was set, before the person changed the day.
    Date record_;
};

} // namespace oakfen

#include "Oakfen/Widgets/Components/DateField.h"

#include <QCalendarWidget>
#include <QSignalBlocker>

#include "Oakfen/Widgets/Bridge.h"
#include "OakfenCore/Support/Formatting.h"

namespace oakfen {

namespace {

/// The locale's order of year, month and day, as a pattern of the toolkit.
QString dayPattern() {
    const Calendar utc = Calendar::utc();
    QString pattern =
        qt(numericDateText(utc.date({.year = 2035, .month = 11, .day = 24, .hour = 12}), utc));
    pattern.replace(QStringLiteral("2035"), QStringLiteral("yyyy"));
    pattern.replace(QStringLiteral("11"), QStringLiteral("MM"));
    pattern.replace(QStringLiteral("24"), QStringLiteral("dd"));
    return pattern;
}

} // namespace

DateField::DateField(const QString& title, const Calendar& calendar, QWidget* parent)
    : QDateEdit(parent), calendar_(calendar) {
    setAccessibleName(title);
    setDisplayFormat(dayPattern());
    setCalendarPopup(true);
    setMinimumDate(QDate(1, 1, 1));
    setMaximumDate(QDate(4000, 12, 31));
    connect(this, &QDateEdit::dateChanged, this, [this](QDate day) {
        CivilTime civil = calendar_.civil(value_);
        civil.year = day.year();
        civil.month = day.month();
        civil.day = day.day();
        value_ = calendar_.date(civil);
        edited();
    });
}

void DateField::setValue(oakfen::Date value) {
    const QSignalBlocker blocker(this);
    value_ = value;
    const CivilTime civil = calendar_.civil(value);
    setDate(QDate(civil.year, civil.month, civil.day));
}

} // namespace oakfen

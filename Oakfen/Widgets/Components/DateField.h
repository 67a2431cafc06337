#pragma once

#include <QDateEdit>
#include <functional>

#include "OakfenCore/Support/Calendar.h"

namespace oakfen {

/// A field for a day. Keeps the time of day, and the whole instant until the person changes the
/// day.
class DateField final : public QDateEdit {
public:
    DateField(const QString& title, const Calendar& calendar, QWidget* parent = nullptr);

    [[nodiscard]] oakfen::Date value() const { return value_; }
    void setValue(oakfen::Date value);

    /// Called after each change by the person.
    std::function<void()> edited = [] {};

private:
    Calendar calendar_;
    oakfen::Date value_;
};

} // namespace oakfen

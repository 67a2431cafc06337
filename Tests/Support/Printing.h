#pragma once

#include <ostream>

#include "OakfenCore/Support/Number/Decimal.h"
#include "OakfenCore/Support/Time/Date.h"
#include "OakfenCore/Support/Values/UUID.h"

/// How GoogleTest prints our values in a failure; included into every test.
namespace oakfen {

inline void PrintTo(const Decimal& value, std::ostream* stream) {
    *stream << value.toString();
}

inline void PrintTo(const UUID& id, std::ostream* stream) {
    *stream << id.toString();
}

inline void PrintTo(const Date& date, std::ostream* stream) {
    *stream << date.secondsSinceReference << " s";
}

} // namespace oakfen

#pragma once

#include "OakfenCore/SampleData/SampleData.h"

namespace oakfen::testing {

inline Calendar toronto() {
    return *Calendar::inZone("America/Toronto");
}

/// Half past nine of that morning in Toronto.
inline Date at(int year, int month, int day) {
    return toronto().date({year, month, day, 9, 30, 0});
}

/// The sample as of a day in autumn.
inline Library autumnSample() {
    return SampleData::make(at(2026, 10, 10), "CAD", toronto());
}

} // namespace oakfen::testing

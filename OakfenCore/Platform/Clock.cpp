#include "OakfenCore/Platform/Clock.h"

#include <chrono>

namespace oakfen {

Date SystemClock::now() const {
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    return Date::since1970(static_cast<double>(now.time_since_epoch().count()));
}

} // namespace oakfen

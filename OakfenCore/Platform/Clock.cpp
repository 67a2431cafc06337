#include "OakfenCore/Platform/Clock.h"

#include <chrono>

namespace oakfen {

Date SystemClock::now() const {
    const auto elapsed = std::chrono::system_clock::now().time_since_epoch();
    return Date::since1970(std::chrono::duration<double>(elapsed).count());
}

} // namespace oakfen

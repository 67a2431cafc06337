#include "OakfenCore/Platform/Clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

namespace oakfen {
namespace {

double systemSeconds() {
    const auto elapsed = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double>(elapsed).count();
}

TEST(SystemClock, TellsTheSecondThatHasBegun) {
    for (int time = 0; time < 5; ++time) {
        const double before = systemSeconds();
        const double now = SystemClock().now().secondsSince1970();
        EXPECT_EQ(now, std::floor(now));
        EXPECT_GE(now, std::floor(before));
        EXPECT_LE(now, systemSeconds());
        // No five moments this far apart are all at the start of a second.
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
    }
}

} // namespace
} // namespace oakfen

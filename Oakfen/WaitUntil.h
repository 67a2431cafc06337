#pragma once

#include <functional>

#include "OakfenCore/Platform/Scheduler.h"

namespace oakfen {

/// Calls `then` on the main thread once `isTime` holds: at once, or as soon as one of the looks
/// that are taken a few times a second finds it so.
void waitUntil(Scheduler& scheduler, std::function<bool()> isTime, std::function<void()> then);

} // namespace oakfen

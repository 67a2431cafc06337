#pragma once

#include <functional>
#include <string>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// Runs `work` on a worker while the progress pill shows the message, then `then` on the main
/// thread. When the work throws, the error's text becomes an alert instead. One work goes on at a
/// time, since there is one pill and two could write the same file; a further one waits.
void runBusy(AppEnvironment& environment, const std::string& message, std::function<void()> work,
             std::function<void()> then);

} // namespace oakfen

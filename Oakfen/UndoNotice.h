#pragma once

#include <string>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// Shows a notice of what the last step has done, with a button that takes it back. The notice goes
/// with the next step.
void offerUndo(AppEnvironment& environment, std::string text);

} // namespace oakfen

#pragma once

#include <optional>
#include <string>

namespace oakfen {

/// Renders every screen, sheet and gate into the folder, one picture each, light and dark: of the
/// document in `file`, or of the sample household. Touches nothing else of the person's. Needs the
/// application object. Throws a `LocalizedError` when the file can't be read or a picture written.
void renderTour(const std::string& folder, const std::optional<std::string>& file);

} // namespace oakfen

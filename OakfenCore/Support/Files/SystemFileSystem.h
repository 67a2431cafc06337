#pragma once

#include "OakfenCore/Support/Files/FileSystem.h"

namespace oakfen {

/// The real files of this machine.
[[nodiscard]] FileSystem& systemFiles();

} // namespace oakfen

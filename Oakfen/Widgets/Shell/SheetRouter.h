#pragma once

#include "Oakfen/AppEnvironment.h"

class QWidget;

namespace oakfen {

class SheetScaffold;

/// The editor or review for a sheet; null for one that this version has no screen for or whose
/// account is gone.
[[nodiscard]] SheetScaffold* makeSheet(AppEnvironment& environment, const ActiveSheet& sheet,
                                       QWidget* parent);

} // namespace oakfen

#pragma once

#include "Oakfen/AppEnvironment.h"

class QDialog;
class QWidget;

namespace oakfen {

/// The dialog for a sheet; null for one that this version has no screen for or whose account is
/// gone.
[[nodiscard]] QDialog* makeSheet(AppEnvironment& environment, const ActiveSheet& sheet,
                                 QWidget* parent);

} // namespace oakfen

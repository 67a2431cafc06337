#pragma once

#include <memory>

#include "Oakfen/Views/RegisterView.h"

class QMenu;
class QWidget;

namespace oakfen {

/// The context menu of a register for these entries. The view must outlive it.
[[nodiscard]] std::unique_ptr<QMenu> makeRegisterMenu(RegisterView& view, const UUIDSet& ids,
                                                      QWidget* parent);

} // namespace oakfen

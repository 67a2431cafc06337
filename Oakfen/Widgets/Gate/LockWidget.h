#pragma once

#include <QWidget>

#include "Oakfen/Views/Gate/LockView.h"

namespace oakfen {

/// The lock's panel; asks the person to unlock as soon as it is there.
class LockWidget final : public QWidget {
    Q_OBJECT

public:
    LockWidget(AppState& appState, Authenticator& authenticator, QWidget* parent);

private:
    LockView view_;
    Subscription changed_;
};

} // namespace oakfen

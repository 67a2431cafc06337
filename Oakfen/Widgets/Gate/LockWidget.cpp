#include "Oakfen/Widgets/Gate/LockWidget.h"

#include "Oakfen/Widgets/Gate/GatePanelWidget.h"
#include "Oakfen/Widgets/Theme/Bridge.h"
#include "Oakfen/Widgets/Theme/SymbolIcons.h"
#include "Oakfen/Widgets/Theme/Theme.h"

namespace oakfen {

LockWidget::LockWidget(AppState& appState, Authenticator& authenticator, QWidget* parent)
    : QWidget(parent), view_(appState, authenticator) {
    auto* panel = new GatePanelWidget(LockView::panelText(), this);
    auto* unlock = new QPushButton(symbolIcon("touchid", ThemeColor::onAccent),
                                   QStringLiteral("Unlock"), panel);
    connect(unlock, &QPushButton::clicked, this, [this] { view_.unlock(); });
    panel->fields().addWidget(unlock, 0, Qt::AlignHCenter);
    panel->setDefaultButton(unlock);
    changed_ = view_.changed.observe([this, panel] { panel->setErrorText(view_.errorText()); });

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(panel);
    // Not at once: the lock comes up in the middle of a notice, which an answer would overtake. A
    // lock that was hidden again meanwhile asks for nothing.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!isHidden()) {
                view_.unlock();
            }
        },
        Qt::QueuedConnection);
}

} // namespace oakfen

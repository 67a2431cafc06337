#pragma once

#include <QFrame>
#include <functional>
#include <tuple>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/ContentView.h"
#include "Oakfen/Views/PasswordViews.h"

namespace oakfen {

/// Covers the main screen, opaque, with the panel that is asked for: the access gate's or the lock.
class GateWidget final : public QFrame {
    Q_OBJECT

public:
    /// `quit` is what cancelling a choice does that can't be put off.
    GateWidget(AppEnvironment& environment, std::function<void()> quit, QWidget* parent);

    void refresh();

private:
    /// What decides which panel is shown.
    using Shown = std::tuple<ContentView::Cover, GatePanel, std::string>;

    [[nodiscard]] QWidget* makePanel(ContentView::Cover cover, GatePanel panel,
                                     const std::string& reason);
    [[nodiscard]] QWidget* makeUnlockPanel();
    [[nodiscard]] QWidget* makeProtectPanel();
    [[nodiscard]] QWidget* makeLegacyPanel(const std::string& reason);
    [[nodiscard]] QWidget* makeLockPanel();

    AppEnvironment& environment_;
    std::function<void()> quit_;
    NewPasswordForm passwordForm_;
    QWidget* panel_ = nullptr;
    std::optional<Shown> shown_;
};

} // namespace oakfen

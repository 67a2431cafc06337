#pragma once

#include <QFrame>
#include <QPixmap>
#include <functional>
#include <tuple>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Cover.h"
#include "Oakfen/Views/Gate/PasswordViews.h"

namespace oakfen {

/// Covers the main screen, of which only a blur is left, with the panel that is asked for: the
/// access gate's or the lock.
class GateWidget final : public QFrame {
    Q_OBJECT

public:
    /// `quit` is what cancelling a choice does that can't be put off; `screen` is what is covered.
    GateWidget(AppEnvironment& environment, std::function<void()> quit, QWidget& screen,
               QWidget* parent);

    /// Shows the panel that is asked for now, or hides.
    void refresh();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// What decides which panel is shown.
    using Shown = std::tuple<Cover, GatePanel, std::string>;

    /// To be taken again with the next painting.
    void forgetBackdrop();
    [[nodiscard]] QWidget* makePanel(Cover cover, GatePanel panel, const std::string& reason);
    [[nodiscard]] QWidget* makeUnlockPanel();
    [[nodiscard]] QWidget* makeProtectPanel();
    [[nodiscard]] QWidget* makeLegacyPanel(const std::string& reason);

    AppEnvironment& environment_;
    std::function<void()> quit_;
    QWidget& screen_;
    /// Blurred; none until it is needed.
    QPixmap backdrop_;
    NewPasswordForm passwordForm_;
    QWidget* panel_ = nullptr;
    std::optional<Shown> shown_;
    Subscription libraryChanged_;
};

} // namespace oakfen

#pragma once

#include <QWidget>

#include "Oakfen/AppEnvironment.h"
#include "Oakfen/Views/Shell/DetailView.h"

namespace oakfen {

/// The detail area: builds the screen that the selection asks for, and a fresh one for each
/// account.
class DetailWidget final : public QWidget {
    Q_OBJECT

public:
    explicit DetailWidget(AppEnvironment& environment, QWidget* parent = nullptr);

    /// Moves the keyboard to the screen.
    void focusScreen();

private:
    void refresh();
    [[nodiscard]] QWidget* makeScreen(const DetailScreen& screen);

    AppEnvironment& environment_;
    std::optional<DetailScreen> shown_;
    QWidget* screen_ = nullptr;
    std::vector<Subscription> subscriptions_;
};

} // namespace oakfen

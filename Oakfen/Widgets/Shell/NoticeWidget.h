#pragma once

#include <QFrame>

#include "Oakfen/AppState.h"

class QLabel;
class QPushButton;
class QTimer;
class QToolButton;

namespace oakfen {

/// The quiet word at the foot of the window. Goes by itself after a while, unless it stays, the
/// pointer rests on it or the keyboard is in it.
class NoticeWidget final : public QFrame {
    Q_OBJECT

public:
    NoticeWidget(AppState& state, QWidget* parent);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void refresh();
    void goInAWhile();
    [[nodiscard]] bool isInUse() const;

    AppState& state_;
    QLabel* text_;
    QPushButton* action_;
    QToolButton* close_;
    QTimer* timer_;
    Subscription noticeChanged_;
};

} // namespace oakfen

#pragma once

#include <QFrame>
#include <QPointer>

#include "Oakfen/AppState.h"

class QLabel;
class QPushButton;
class QTimer;
class QToolButton;

namespace oakfen {

/// The quiet word at the foot of the window. Goes by itself after a while, unless it stays, the
/// pointer rests on it or the keyboard is in it; the keyboard then goes back to where it was.
class NoticeWidget final : public QFrame {
    Q_OBJECT

public:
    NoticeWidget(AppState& state, QWidget* parent);

    /// While the main screen is hidden, only what stays is told: all else speaks of the ledger.
    void setScreenHidden(bool isHidden);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void refresh();
    void tell(const Notice& notice);
    void leave();
    void goInAWhile();
    [[nodiscard]] bool isInUse() const;

    AppState& state_;
    QLabel* text_;
    QPushButton* action_;
    QToolButton* close_;
    QTimer* timer_;
    bool isScreenHidden_ = false;
    /// Where the keyboard was before it came here.
    QPointer<QWidget> before_;
    Subscription noticeChanged_;
};

} // namespace oakfen

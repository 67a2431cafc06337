#pragma once

#include <QFrame>
#include <optional>

class QLabel;
class QTimer;

namespace oakfen {

/// A small spinner and a text over the main screen while something takes time. Lets every click
/// through, and doesn't show at all for what ends at once.
class BusyPill final : public QFrame {
    Q_OBJECT

public:
    explicit BusyPill(QWidget* parent);

    void setMessage(const std::optional<std::string>& message);

private:
    QLabel* label_;
    QTimer* delay_;
};

} // namespace oakfen

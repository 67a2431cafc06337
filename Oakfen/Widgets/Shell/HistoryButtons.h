#pragma once

#include <QObject>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// Lets the buttons at the side of a mouse go back and forward among the screens of the window.
class HistoryButtons final : public QObject {
    Q_OBJECT

public:
    HistoryButtons(AppEnvironment& environment, QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    AppEnvironment& environment_;
    QWidget& window_;
};

} // namespace oakfen

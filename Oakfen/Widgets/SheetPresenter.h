#pragma once

#include <QDialog>
#include <QPointer>
#include <optional>

#include "Oakfen/AppEnvironment.h"

namespace oakfen {

/// Opens the dialog of the sheet that the application's state names, and tells the state when the
/// dialog is closed.
class SheetPresenter final : public QObject {
    Q_OBJECT

public:
    SheetPresenter(AppEnvironment& environment, QWidget* window);

private:
    void refresh();

    AppEnvironment& environment_;
    QWidget* window_;
    std::optional<ActiveSheet> shown_;
    QPointer<QDialog> dialog_;
    Subscription subscription_;
};

} // namespace oakfen

#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

#include "Oakfen/Views/Gate/ContentView.h"
#include "OakfenCore/Support/Values/Observers.h"

class QMessageBox;

namespace oakfen {

/// Shows the root's alerts one after another; each clears its source when dismissed.
class AlertPresenter final : public QObject {
    Q_OBJECT

public:
    AlertPresenter(AppEnvironment& environment, QWidget* window);

    /// Shows what is due. The window calls it once it is visible; from then on it follows by
    /// itself.
    void start();

private:
    void refreshLater();
    void refresh();
    void present(const ContentView::Alert& alert);

    AppEnvironment& environment_;
    ContentView view_;
    QWidget* window_;
    bool isStarted_ = false;
    QPointer<QMessageBox> box_;
    std::vector<Subscription> subscriptions_;
};

} // namespace oakfen

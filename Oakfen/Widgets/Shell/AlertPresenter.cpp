#include "Oakfen/Widgets/Shell/AlertPresenter.h"

#include <QApplication>
#include <QMessageBox>

#include "Oakfen/Widgets/Components/MessageBox.h"
#include "Oakfen/Widgets/Theme/Bridge.h"

namespace oakfen {

AlertPresenter::AlertPresenter(AppEnvironment& environment, QWidget* window)
    : QObject(window), environment_(environment), view_(environment), window_(window) {
    subscriptions_.push_back(
        environment_.appState.alertChanged.observe([this] { refreshLater(); }));
    subscriptions_.push_back(environment_.store.statusChanged.observe([this] { refreshLater(); }));
}

void AlertPresenter::refreshLater() {
    // A notice can come out of the middle of an edit; the alert waits for its end.
    QMetaObject::invokeMethod(this, &AlertPresenter::refresh, Qt::QueuedConnection);
}

void AlertPresenter::start() {
    isStarted_ = true;
    refresh();
}

void AlertPresenter::refresh() {
    if (!isStarted_ || box_ != nullptr) {
        return;
    }
    if (const auto alert = view_.dueAlert()) {
        present(*alert);
    }
}

void AlertPresenter::present(const ContentView::Alert& alert) {
    QWidget* modal = QApplication::activeModalWidget();
    const std::string text =
        alert.addition.empty() ? alert.text : alert.text + "\n\n" + alert.addition;
    box_ = makeMessageBox(modal != nullptr ? modal : window_, qt(alert.title), qt(text));
    box_->setStandardButtons(QMessageBox::Ok);
    showDetails(*box_, qt(alert.details));
    connect(box_, &QDialog::finished, this, [this, alert] {
        box_ = nullptr;
        // A newer text of the same source hasn't been seen yet.
        if (view_.dueAlert() == alert) {
            view_.dismissAlert(alert.source);
        }
        refresh();
    });
    // It may go with its window before anybody has read it.
    connect(box_, &QObject::destroyed, this, &AlertPresenter::refreshLater);
    box_->open();
}

} // namespace oakfen

#include "Oakfen/Widgets/SheetPresenter.h"

#include "Oakfen/Widgets/SheetRouter.h"

namespace oakfen {

SheetPresenter::SheetPresenter(AppEnvironment& environment, QWidget* window)
    : QObject(window), environment_(environment), window_(window) {
    subscription_ = environment_.appState.sheetChanged.observe([this] { refresh(); });
}

void SheetPresenter::refresh() {
    const std::optional<ActiveSheet> wanted = environment_.appState.sheet();
    if (wanted == shown_) {
        return;
    }
    shown_ = wanted;
    if (dialog_ != nullptr) {
        dialog_->disconnect(this);
        dialog_->close();
        dialog_ = nullptr;
    }
    if (!wanted) {
        return;
    }
    dialog_ = makeSheet(environment_, *wanted, window_);
    if (dialog_ == nullptr) {
        environment_.appState.setSheet(std::nullopt);
        return;
    }
    dialog_->setWindowModality(Qt::WindowModal);
    dialog_->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog_, &QDialog::finished, this, [this] {
        dialog_ = nullptr;
        environment_.appState.setSheet(std::nullopt);
    });
    dialog_->open();
}

} // namespace oakfen

#include "Oakfen/Widgets/Shell/SheetPresenter.h"

#include "Oakfen/Widgets/Components/SheetScaffold.h"
#include "Oakfen/Widgets/Shell/SheetHost.h"
#include "Oakfen/Widgets/Shell/SheetRouter.h"

namespace oakfen {

SheetPresenter::SheetPresenter(AppEnvironment& environment, SheetHost& host)
    : QObject(&host), environment_(environment), host_(host) {
    subscription_ = environment_.appState.sheetChanged.observe([this] { refresh(); });
}

void SheetPresenter::refresh() {
    const std::optional<ActiveSheet> wanted = environment_.appState.sheet();
    if (wanted == shown_) {
        return;
    }
    shown_ = wanted;
    putAway();
    if (!wanted) {
        return;
    }
    sheet_ = makeSheet(environment_, *wanted, host_.window());
    if (sheet_ == nullptr) {
        environment_.appState.setSheet(std::nullopt);
        return;
    }
    connect(sheet_, &QDialog::finished, this,
            [this] { environment_.appState.setSheet(std::nullopt); });
    host_.open(*sheet_);
}

void SheetPresenter::putAway() {
    if (sheet_ == nullptr) {
        return;
    }
    sheet_->disconnect(this);
    host_.closeSheet();
    // It may be in the middle of telling that it has finished.
    sheet_->deleteLater();
    sheet_ = nullptr;
}

} // namespace oakfen
